#include "import/BitmapDecoder.h"
#include "import/PageDrawing.h"

#include <QBuffer>
#include <cstdio>
#include <memory>
#include <tiffio.h>

namespace mosaro::importing {

namespace {

// How the library is handed a file that lies in memory.

QBuffer& buffer(thandle_t handle)
{
    return *static_cast<QBuffer*>(handle);
}

tmsize_t read(thandle_t handle, void* bytes, tmsize_t count)
{
    return buffer(handle).read(static_cast<char*>(bytes), count);
}

tmsize_t writeNothing(thandle_t, void*, tmsize_t)
{
    return -1;
}

toff_t seek(thandle_t handle, toff_t offset, int whence)
{
    QBuffer& file = buffer(handle);
    const qint64 start = whence == SEEK_SET ? 0 : whence == SEEK_CUR ? file.pos() : file.size();
    const bool isInside = file.seek(start + static_cast<qint64>(offset));
    return isInside ? static_cast<toff_t>(file.pos()) : static_cast<toff_t>(-1);
}

int keepOpen(thandle_t)
{
    return 0;
}

toff_t size(thandle_t handle)
{
    return static_cast<toff_t>(buffer(handle).size());
}

bool hasSize(TIFF* tiff, QSize expected)
{
    quint32 width = 0;
    quint32 height = 0;
    TIFFGetField(tiff, TIFFTAG_IMAGEWIDTH, &width);
    TIFFGetField(tiff, TIFFTAG_IMAGELENGTH, &height);
    return width == static_cast<quint32>(expected.width()) &&
           height == static_cast<quint32>(expected.height());
}

bool readPixels(TIFF* tiff, QImage& picture)
{
    constexpr int kStopAtDamage = 1;
    return TIFFReadRGBAImageOriented(
               tiff, static_cast<quint32>(picture.width()), static_cast<quint32>(picture.height()),
               reinterpret_cast<quint32*>(picture.bits()), ORIENTATION_TOPLEFT, kStopAtDamage) != 0;
}

} // namespace

base::Result<QImage> drawnTiff(const QByteArray& tiff, QSize expected)
{
    ensureImageLibrary(); // Keeps the reader from saying anything on the console.
    QBuffer bytes;
    bytes.setData(tiff);
    bytes.open(QIODevice::ReadOnly);
    const std::unique_ptr<TIFF, decltype(&TIFFClose)> file(
        TIFFClientOpen("picture", "rm", &bytes, read, writeNothing, seek, keepOpen, size, nullptr, nullptr),
        TIFFClose);
    QImage picture(expected, QImage::Format_RGBA8888_Premultiplied);
    if (!file || picture.isNull() || !hasSize(file.get(), expected) || !readPixels(file.get(), picture))
        return damagedPicture();
    return std::move(picture).convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

} // namespace mosaro::importing
