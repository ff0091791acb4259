#pragma once

#include "base/MemoryBudget.h"
#include "base/Result.h"
#include "import/Analysis.h"
#include "import/FileHeaders.h"
#include "import/VipsSupport.h"

#include <QImage>
#include <QString>

namespace mosaro::importing {

/// A bitmap file whose header is read and found within the limits. Its pixels are decoded when they are asked
/// for, once, from top to bottom.
struct OpenedBitmap {
    QString path;
    BitmapFormat format = BitmapFormat::Png;
    QImage decoded;      ///< Under `image` for formats that are decoded at once; goes last.
    VipsPtr image;       ///< As stored: not turned, colours as in the file.
    int orientation = 1; ///< EXIF's number, 1 to 8.
    int pages = 1;
    ImageMetadata metadata;
    qint64 decoderBytes = 0;   ///< What the decoder has to hold at once, when it can't go row by row.
    QSemaphoreReleaser memory; ///< Of decodingMemory(), for formats that are decoded at once.

    /// As stored.
    [[nodiscard]] QSize storedSize() const { return {metadata.width, metadata.height}; }
    /// As it is to be looked at.
    [[nodiscard]] QSize pixelSize() const
    {
        return orientation >= 5 ? storedSize().transposed() : storedSize();
    }
};

/// Keeps down what is decoded at the same time.
[[nodiscard]] base::MemoryBudget& decodingMemory();

/// A file that holds another format than its name says is refused: what is stored of it goes by the name.
[[nodiscard]] base::Result<OpenedBitmap> openBitmap(const QString& path, DocumentType named);

/// The same picture 1, 2, 4 or 8 times smaller, for what the format can shrink while decoding; else as it is.
[[nodiscard]] VipsPtr imageShrunkOnLoad(const OpenedBitmap& bitmap, int factor);

/// Reasons for the user.
/// Of a file that is not of the type that its name says.
[[nodiscard]] base::Failure otherContents(const QByteArray& head, DocumentType named);
[[nodiscard]] base::Failure damagedPicture();
[[nodiscard]] base::Failure tooLargePicture(QSize size);

} // namespace mosaro::importing
