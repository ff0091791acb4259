#pragma once

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QRect>
#include <QSize>
#include <optional>

namespace mosaro::importing {

inline constexpr QSize kPreviewBox{460, 360};
inline constexpr int kSmallCanvas = 132;
inline constexpr int kFillLimit = 200;
inline constexpr double kPreviewQuality = 0.6;

enum class FileType { Tiff = 0, Bmp = 1, Gif = 2, Jpeg = 3, Png = 4 };

/// The centred, integral rectangle of a source that has the target's aspect ratio.
[[nodiscard]] QRect fillSourceRect(QSize source, QSize target);

/// Exactly `fillSize`, cut from the centre; enlarges when needed.
[[nodiscard]] QImage scaleImage(const QImage& image, QSize fillSize);

/// The size that the picture has within `box`: scaled down proportionally, never up.
[[nodiscard]] QSize proportionalSize(QSize source, QSize box);

/// Scaled down to the box; with sizeToFit centred on a transparent canvas of the box's size. Null for a null
/// image. A border colour frames the result.
[[nodiscard]] QImage imageByScalingProportionallyToSize(const QImage& image, QSize size,
                                                        const std::optional<QColor>& withBorderColor,
                                                        bool sizeToFit);

/// Scaled down to the size, stretched as needed. Each pixel is the mean of the area it covers.
[[nodiscard]] QImage shrunk(const QImage& image, QSize size);

/// The picture at its own size in the middle of a transparent square of kSmallCanvas.
[[nodiscard]] QImage imageOnSmallCanvas(const QImage& image);

/// Encoded bytes: JPEG progressive (transparency on black), PNG interlaced, GIF; empty on failure.
[[nodiscard]] QByteArray representationForFileType(const QImage& image, FileType type, double withQuality);
[[nodiscard]] QByteArray JPEGRepresentation(const QImage& image, double quality);
[[nodiscard]] QByteArray JPEG(const QImage& image); ///< At full quality.
[[nodiscard]] QByteArray PNGRepresentation(const QImage& image);
[[nodiscard]] QByteArray GIFRepresentation(const QImage& image);

[[nodiscard]] QImage imageWithColor(const QColor& color, QSize size, const std::optional<QColor>& borderColor,
                                    int borderWidth);
[[nodiscard]] QImage imageRotated(const QImage& image, double degrees);
/// Extension by the first byte alone, or empty.
[[nodiscard]] QString contentTypeForImageData(const QByteArray& data);
[[nodiscard]] QColor averageColor(const QImage& image);

/// The pixels as plain 32-bit words, premultiplied, alpha first.
[[nodiscard]] QImage CGImage(const QImage& image);

/// `side` by `side` cells (RGBA8888, premultiplied), each the exact mean of the area it covers.
[[nodiscard]] QImage sampledToGrid(const QImage& image, int side);

} // namespace mosaro::importing
