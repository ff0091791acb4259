#pragma once

#include "import/MediaClassification.h"

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>
#include <optional>

class QIODevice;

namespace mosaro::importing {

// What the first bytes of a file say, read without trust in them: every offset and length is checked.

/// The bitmap formats that can be decoded, told by content whatever the file is called.
enum class BitmapFormat { Jpeg, Png, Gif, Tiff, Bmp, Tga, Jpeg2000, Pict, QuickTimeImage };

/// Some formats carry no mark at a file's start, so only a file that is called one can be one.
[[nodiscard]] std::optional<BitmapFormat> bitmapFormatOf(const QByteArray& head, DocumentType named);
[[nodiscard]] DocumentType documentTypeOf(BitmapFormat format);
/// How many bytes it may take to tell a type.
inline constexpr int kTypeHeadBytes = 1024;
/// The type that a file's first bytes give away, whatever it is called; nothing when they tell none.
[[nodiscard]] std::optional<DocumentType> markedTypeOf(const QByteArray& head);

struct BitmapHeader {
    QSize size;
    int depth = 8;  ///< Bits per component.
    double dpi = 0; ///< Across; 0 when the file does not say.
    bool hasAlpha = false;
    bool isGray = false;
    bool isInterlaced = false;
    bool isReadAsRgba = false; ///< A TIFF that its own library reads as colours.
    bool isRare = false;       ///< A form of its format that the usual reader does not know.
    qint64 minimumBytes = 0;   ///< Fewer bytes than these and the file is cut off; 0 when it can't be known.
    int orientation = 1;       ///< EXIF's number.
    QString software;
    QString colorModel; ///< Where it is neither gray nor RGB.
    QString profileName;
};

[[nodiscard]] std::optional<BitmapHeader> readPngHeader(QIODevice& file);
/// The program that wrote a PNG, by the first text before or behind the pixels that names one. Wants a device
/// without a buffer, since it jumps over most of the file.
[[nodiscard]] QString pngSoftware(QIODevice& file);
[[nodiscard]] std::optional<BitmapHeader> readBmpHeader(QIODevice& file);
[[nodiscard]] std::optional<BitmapHeader> readTgaHeader(QIODevice& file);
/// Size (the frame's) and resolution only.
[[nodiscard]] std::optional<BitmapHeader> readPictHeader(QIODevice& file);
[[nodiscard]] std::optional<BitmapHeader> readJpeg2000Header(QIODevice& file);

struct TiffHeader {
    int depth = 8;
    double dpi = 0;
    QString colorModel;
    QString software;
    bool isWhole = true;    ///< Every directory of the chain can be read, and the chain has an end.
    qint64 piecePixels = 0; ///< Pixels of the piece (strip or row of tiles) that is decoded at once.
};
[[nodiscard]] std::optional<TiffHeader> readTiffHeader(const QString& path);
/// Only of a TIFF that the image library does not read, or not rightly: with odd numbers of bits, planes in
/// tiles, gray and opacity in planes, three bytes a number, colours that are fewer than the pixels.
[[nodiscard]] std::optional<BitmapHeader> readRareTiffHeader(const QString& path);
/// Of one that `isReadAsRgba`: as it is to be looked at, but for turns by a quarter.
/// Null when it can't be read.
[[nodiscard]] QImage readTiffAsRgba(const QString& path, QSize size);

/// Resolutions per metre are whole numbers, so 300 dpi comes back as 299.9994; this gives the number meant.
[[nodiscard]] double dpiFromMetre(double pixelsPerMetre);

} // namespace mosaro::importing
