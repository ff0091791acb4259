#include "import/FileHeaders.h"
#include "import/VipsSupport.h"

#include <QFile>
#include <climits>
#include <memory>
#include <tiffio.h>

namespace mosaro::importing {

namespace {

struct TiffCloser {
    void operator()(TIFF* tiff) const { TIFFClose(tiff); }
};

QString colorModelOf(int photometric)
{
    switch (photometric) {
    case PHOTOMETRIC_MINISWHITE:
    case PHOTOMETRIC_MINISBLACK:
    case PHOTOMETRIC_MASK:
        return QStringLiteral("Gray");
    case PHOTOMETRIC_SEPARATED:
        return QStringLiteral("CMYK");
    case PHOTOMETRIC_CIELAB:
    case PHOTOMETRIC_ICCLAB:
    case PHOTOMETRIC_ITULAB:
        return QStringLiteral("Lab");
    default:
        return QStringLiteral("RGB");
    }
}

double dpiOf(TIFF* tiff)
{
    float resolution = 0;
    quint16 unit = RESUNIT_INCH;
    TIFFGetFieldDefaulted(tiff, TIFFTAG_RESOLUTIONUNIT, &unit);
    if (!TIFFGetField(tiff, TIFFTAG_XRESOLUTION, &resolution) || unit == RESUNIT_NONE || !(resolution > 0))
        return 0;
    return unit == RESUNIT_CENTIMETER ? dpiFromMetre(static_cast<double>(resolution) * 100)
                                      : static_cast<double>(resolution);
}

qint64 piecePixelsOf(TIFF* tiff)
{
    quint32 width = 0;
    quint32 height = 0;
    TIFFGetField(tiff, TIFFTAG_IMAGEWIDTH, &width);
    TIFFGetField(tiff, TIFFTAG_IMAGELENGTH, &height);
    quint32 rows = height;
    if (TIFFIsTiled(tiff))
        TIFFGetField(tiff, TIFFTAG_TILELENGTH, &rows);
    else
        TIFFGetFieldDefaulted(tiff, TIFFTAG_ROWSPERSTRIP, &rows);
    rows = TIFFIsTiled(tiff) ? rows : std::min(rows, height);
    // No longer edges than a picture may have, so that the product is a number.
    return qint64(std::min<quint32>(width, INT_MAX)) * std::min<quint32>(rows, INT_MAX);
}

// The library refuses a directory that it has met before.
bool isChainWhole(TIFF* tiff)
{
    while (!TIFFLastDirectory(tiff)) {
        if (!TIFFReadDirectory(tiff))
            return false;
    }
    return true;
}

// "m": the file is read, never mapped, so that it may shrink meanwhile.
std::unique_ptr<TIFF, TiffCloser> opened(const QString& path)
{
    return std::unique_ptr<TIFF, TiffCloser>(TIFFOpen(QFile::encodeName(path).constData(), "rm"));
}

quint16 numberOf(TIFF* tiff, ttag_t tag)
{
    quint16 number = 0;
    TIFFGetFieldDefaulted(tiff, tag, &number);
    return number;
}

bool hasOddNumbers(TIFF* tiff)
{
    const int bits = numberOf(tiff, TIFFTAG_BITSPERSAMPLE);
    const int format = numberOf(tiff, TIFFTAG_SAMPLEFORMAT);
    if (format == SAMPLEFORMAT_IEEEFP)
        return bits != 32;
    if (bits == 1 || bits == 2 || bits == 4)
        return numberOf(tiff, TIFFTAG_SAMPLESPERPIXEL) > 1;
    return bits != 8 && bits != 16;
}

bool isSubsampled(TIFF* tiff)
{
    const int compression = numberOf(tiff, TIFFTAG_COMPRESSION);
    if (compression == COMPRESSION_JPEG || compression == COMPRESSION_OJPEG ||
        numberOf(tiff, TIFFTAG_PHOTOMETRIC) != PHOTOMETRIC_YCBCR)
        return false;
    quint16 across = 1;
    quint16 down = 1;
    TIFFGetFieldDefaulted(tiff, TIFFTAG_YCBCRSUBSAMPLING, &across, &down);
    return across != 1 || down != 1;
}

/// Gray with opacity in planes of their own, which the image library takes for one plane.
bool isGrayInPlanes(TIFF* tiff)
{
    const int photometric = numberOf(tiff, TIFFTAG_PHOTOMETRIC);
    const int bits = numberOf(tiff, TIFFTAG_BITSPERSAMPLE);
    return photometric <= PHOTOMETRIC_MINISBLACK && (bits == 8 || bits == 16) && !TIFFIsTiled(tiff) &&
           numberOf(tiff, TIFFTAG_SAMPLESPERPIXEL) > 1 &&
           numberOf(tiff, TIFFTAG_SAMPLEFORMAT) != SAMPLEFORMAT_IEEEFP &&
           numberOf(tiff, TIFFTAG_PLANARCONFIG) == PLANARCONFIG_SEPARATE;
}

/// Whole numbers of three bytes, which ImageMagick takes for fractions.
bool hasTripleBytes(TIFF* tiff)
{
    const int photometric = numberOf(tiff, TIFFTAG_PHOTOMETRIC);
    const int samples = numberOf(tiff, TIFFTAG_SAMPLESPERPIXEL);
    return numberOf(tiff, TIFFTAG_BITSPERSAMPLE) == 24 && !TIFFIsTiled(tiff) &&
           numberOf(tiff, TIFFTAG_SAMPLEFORMAT) == SAMPLEFORMAT_UINT &&
           ((photometric == PHOTOMETRIC_MINISBLACK && samples == 1) ||
            (photometric == PHOTOMETRIC_RGB && samples == 3));
}

/// The highest bytes, which libtiff puts last here. Null when a row can't be read.
QImage readTripleBytes(TIFF* tiff, QSize size)
{
    const int samples = numberOf(tiff, TIFFTAG_SAMPLESPERPIXEL);
    const bool isPlanar = numberOf(tiff, TIFFTAG_PLANARCONFIG) == PLANARCONFIG_SEPARATE;
    const qsizetype step = isPlanar ? 3 : qsizetype(3) * samples;
    QByteArray row(TIFFScanlineSize(tiff), '\0');
    QImage picture(size, QImage::Format_RGBX8888);
    if (picture.isNull() || row.size() < step * size.width())
        return {};
    picture.fill(Qt::black);
    const int planes = isPlanar ? samples : 1;
    for (int plane = 0; plane < planes; ++plane) {
        for (int y = 0; y < size.height(); ++y) {
            if (TIFFReadScanline(tiff, row.data(), static_cast<quint32>(y), quint16(plane)) < 0)
                return {};
            uchar* pixel = picture.scanLine(y);
            for (int x = 0; x < size.width(); ++x, pixel += 4) {
                for (int band = 0; band < 3; ++band) {
                    const int stored = samples == 1 || isPlanar ? 0 : band;
                    if (!isPlanar || samples == 1 || band == plane)
                        pixel[band] = static_cast<uchar>(row.at(step * x + 3 * qsizetype(stored) + 2));
                }
            }
        }
    }
    return picture;
}

bool isReadAsRgba(TIFF* tiff)
{
    return isSubsampled(tiff) || isGrayInPlanes(tiff) || hasTripleBytes(tiff);
}

bool isRare(TIFF* tiff)
{
    if (numberOf(tiff, TIFFTAG_COMPRESSION) == COMPRESSION_OJPEG || hasOddNumbers(tiff))
        return true;
    if (TIFFIsTiled(tiff) && numberOf(tiff, TIFFTAG_PLANARCONFIG) == PLANARCONFIG_SEPARATE)
        return true;
    return isReadAsRgba(tiff);
}

bool hasAlpha(TIFF* tiff)
{
    quint16 count = 0;
    const quint16* kinds = nullptr;
    TIFFGetFieldDefaulted(tiff, TIFFTAG_EXTRASAMPLES, &count, &kinds);
    return count > 0 && kinds && kinds[0] != EXTRASAMPLE_UNSPECIFIED;
}

QString softwareOf(TIFF* tiff)
{
    const char* software = nullptr;
    return TIFFGetField(tiff, TIFFTAG_SOFTWARE, &software) && software ? QString::fromUtf8(software).trimmed()
                                                                       : QString();
}

} // namespace

std::optional<BitmapHeader> readRareTiffHeader(const QString& path)
{
    const auto tiff = opened(path);
    if (!tiff || !isRare(tiff.get()))
        return std::nullopt;
    quint32 width = 0;
    quint32 height = 0;
    TIFFGetField(tiff.get(), TIFFTAG_IMAGEWIDTH, &width);
    TIFFGetField(tiff.get(), TIFFTAG_IMAGELENGTH, &height);
    BitmapHeader header;
    header.size = {static_cast<int>(std::min<quint32>(width, INT_MAX)),
                   static_cast<int>(std::min<quint32>(height, INT_MAX))};
    header.depth = numberOf(tiff.get(), TIFFTAG_BITSPERSAMPLE);
    header.colorModel = colorModelOf(numberOf(tiff.get(), TIFFTAG_PHOTOMETRIC));
    header.dpi = dpiOf(tiff.get());
    header.hasAlpha = hasAlpha(tiff.get());
    header.orientation = numberOf(tiff.get(), TIFFTAG_ORIENTATION);
    header.software = softwareOf(tiff.get());
    header.isReadAsRgba = isReadAsRgba(tiff.get());
    if (header.isReadAsRgba && !hasTripleBytes(tiff.get()) && header.orientation <= 4)
        header.orientation = 1;
    quint32 length = 0;
    const void* profile = nullptr;
    if (TIFFGetField(tiff.get(), TIFFTAG_ICCPROFILE, &length, &profile))
        header.profileName = profileName({static_cast<const char*>(profile), qsizetype(length)});
    if (header.size.isEmpty())
        return std::nullopt;
    return header;
}

QImage readTiffAsRgba(const QString& path, QSize size)
{
    const auto tiff = opened(path);
    if (tiff && hasTripleBytes(tiff.get()))
        return readTripleBytes(tiff.get(), size);
    QImage picture(size, QImage::Format_RGBA8888_Premultiplied);
    constexpr int kStopAtDamage = 1;
    if (!tiff || picture.isNull() ||
        !TIFFReadRGBAImageOriented(
            tiff.get(), static_cast<quint32>(size.width()), static_cast<quint32>(size.height()),
            reinterpret_cast<quint32*>(picture.bits()), ORIENTATION_TOPLEFT, kStopAtDamage))
        return {};
    return picture;
}

std::optional<TiffHeader> readTiffHeader(const QString& path)
{
    const auto tiff = opened(path);
    if (!tiff)
        return std::nullopt;
    TiffHeader header;
    quint16 depth = 1;
    TIFFGetFieldDefaulted(tiff.get(), TIFFTAG_BITSPERSAMPLE, &depth);
    quint16 photometric = PHOTOMETRIC_RGB;
    TIFFGetField(tiff.get(), TIFFTAG_PHOTOMETRIC, &photometric);
    header.depth = photometric == PHOTOMETRIC_PALETTE ? 8 : depth;
    header.colorModel = colorModelOf(photometric);
    header.dpi = dpiOf(tiff.get());
    header.piecePixels = piecePixelsOf(tiff.get());
    header.software = softwareOf(tiff.get());
    header.isWhole = isChainWhole(tiff.get());
    return header;
}

} // namespace mosaro::importing
