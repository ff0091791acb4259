#include "import/FileHeaders.h"

#include <QFile>
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
    return qint64(width) * (TIFFIsTiled(tiff) ? rows : std::min(rows, height));
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

} // namespace

std::optional<TiffHeader> readTiffHeader(const QString& path)
{
    // "m": the file is read, never mapped, so that it may shrink meanwhile.
    const std::unique_ptr<TIFF, TiffCloser> tiff(TIFFOpen(QFile::encodeName(path).constData(), "rm"));
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
    const char* software = nullptr;
    if (TIFFGetField(tiff.get(), TIFFTAG_SOFTWARE, &software) && software)
        header.software = QString::fromUtf8(software).trimmed();
    header.isWhole = isChainWhole(tiff.get());
    return header;
}

} // namespace mosaro::importing
