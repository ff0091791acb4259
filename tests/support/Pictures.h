#pragma once

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QSize>
#include <QString>
#include <vector>

namespace mosaro::test {

// Pictures made to order, so that no test needs a file from elsewhere. Writers answer whether they wrote.

/// Red and green above, blue and white below: a turned or mirrored picture can be told from an upright one.
[[nodiscard]] QImage quarters(QSize size);
[[nodiscard]] QImage plain(QSize size, const QColor& color);
/// Opaque colour with a fully transparent left half.
[[nodiscard]] QImage halfTransparent(QSize size, const QColor& color);
/// Fine, irregular detail that no encoder can make small: for speed and for files that are cut off.
[[nodiscard]] QImage noise(QSize size, unsigned seed = 1);

/// As a program writes it that has no wishes.
[[nodiscard]] QByteArray encoded(const QImage& image, const char* format);

struct JpegOptions {
    bool progressive = false;
    bool cmyk = false;
    int orientation = 1;  ///< EXIF's number.
    double dpi = 0;       ///< 0: not said.
    QString profile = {}; ///< "p3", "srgb" or a path; the colours are converted to it.
    QString software = {};
};
bool writeJpeg(const QString& path, const QImage& image, const JpegOptions& options = {});

struct PngOptions {
    bool interlaced = false;
    bool palette = false;
    bool gray = false;
    bool sixteenBit = false;
    double dpi = 0;
    QString profile = {};
    QString software = {};
};
bool writePng(const QString& path, const QImage& image, const PngOptions& options = {});

/// More than one frame makes it animated. All frames have one size.
bool writeGif(const QString& path, const std::vector<QImage>& frames);

struct TiffOptions {
    bool cmyk = false;
    bool lab = false;
    bool sixteenBit = false;
    bool tiled = false;
    double dpi = 0;
};
/// All pages have one size.
bool writeTiff(const QString& path, const std::vector<QImage>& pages, const TiffOptions& options = {});

/// A TIFF written byte by byte: uncompressed RGB with exactly the tags given. `unit` 1 none, 2 inch, 3
/// centimetre.
struct PlainTiffTags {
    QByteArray software = {};
    unsigned resolution = 0; ///< 0: no tag.
    unsigned unit = 0;       ///< 0: no tag.
};
[[nodiscard]] QByteArray plainTiff(const QImage& image, const PlainTiffTags& tags);

bool writeBmp(const QString& path, const QImage& image);

enum class TgaKind { TrueColor, RunLength, Palette };
/// All but the palette keep transparency.
bool writeTga(const QString& path, const QImage& image, TgaKind kind = TgaKind::TrueColor);

/// A well-formed head and a few bytes of pixels: the file says it is that large.
[[nodiscard]] QByteArray pngThatClaims(unsigned width, unsigned height);

/// With one more chunk, behind the pixels.
[[nodiscard]] QByteArray pngWithChunk(const QByteArray& png, const QByteArray& name, const QByteArray& data);

bool writeBytes(const QString& path, const QByteArray& bytes);
/// Keeps the first part of a file, 0 to 1.
bool cutOff(const QString& path, double keep);

} // namespace mosaro::test
