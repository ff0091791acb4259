#pragma once

#include "import/MediaClassification.h"

#include <QByteArray>
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

struct BitmapHeader {
    QSize size;
    int depth = 8;  ///< Bits per component.
    double dpi = 0; ///< Across; 0 when the file does not say.
    bool hasAlpha = false;
    bool isGray = false;
    bool isInterlaced = false;
    qint64 minimumBytes = 0; ///< Fewer bytes than these and the file is cut off; 0 when it can't be known.
    QString software;
};

[[nodiscard]] std::optional<BitmapHeader> readPngHeader(QIODevice& file);
[[nodiscard]] std::optional<BitmapHeader> readBmpHeader(QIODevice& file);
[[nodiscard]] std::optional<BitmapHeader> readTgaHeader(QIODevice& file);
/// Size (the frame's) and resolution only.
[[nodiscard]] std::optional<BitmapHeader> readPictHeader(QIODevice& file);
/// Only depth (0: of several) and resolution; the decoder tells the rest.
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

/// Resolutions per metre are whole numbers, so 300 dpi comes back as 299.9994; this gives the number meant.
[[nodiscard]] double dpiFromMetre(double pixelsPerMetre);

} // namespace mosaro::importing
