#include "import/PhotoshopPixels.h"

#include "import/BitmapDecoder.h"

#include <QIODevice>
#include <QtEndian>
#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace mosaro::importing {

namespace {

constexpr int kRaw = 0;
constexpr int kPackBits = 1;
constexpr int kNoCompression = -1; ///< The file ends before it.
constexpr int kNothing = 128; ///< Smaller heads stand before bytes as they are, larger ones before a run.
constexpr qint64 kMostPixelsKept = 12'000'000;

using Sample = quint16;
constexpr Sample kFull = 65535;

/// Runs and stretches of bytes, each behind its length, until the row is full. False when they end before.
bool unpackRow(const QByteArray& packed, QByteArray& row)
{
    qsizetype filled = 0;
    for (qsizetype at = 0; filled < row.size() && at < packed.size();) {
        const int head = static_cast<uchar>(packed.at(at++));
        if (head == kNothing)
            continue;
        const bool isRun = head > kNothing;
        const qsizetype stored = isRun ? 1 : head + 1;
        if (packed.size() - at < stored)
            return false;
        const qsizetype count = std::min<qsizetype>(isRun ? 257 - head : stored, row.size() - filled);
        if (isRun)
            std::fill_n(row.data() + filled, count, packed.at(at));
        else
            std::copy_n(packed.constData() + at, count, row.data() + filled);
        at += stored;
        filled += count;
    }
    return filled == row.size();
}

int compressionOf(QIODevice& file, const PhotoshopPixels& pixels)
{
    const QByteArray bytes = file.seek(pixels.at) ? file.read(2) : QByteArray();
    return bytes.size() == 2 ? qFromBigEndian<quint16>(bytes.constData()) : kNoCompression;
}

/// The rows of one channel after the other.
class Rows {
public:
    Rows(QIODevice& file, const PhotoshopPixels& pixels, int channels)
        : m_file(file), m_isPacked(compressionOf(file, pixels) == kPackBits),
          m_lengthBytes(pixels.isLarge ? 4 : 2),
          m_row((qsizetype(pixels.size.width()) * pixels.depth + 7) / 8, Qt::Uninitialized)
    {
        const qint64 rows = qint64(channels) * pixels.size.height();
        // No packed form makes 128 bytes of less than two.
        const qint64 least = m_isPacked ? rows * (m_lengthBytes + m_row.size() / 64) : rows * m_row.size();
        m_isGood = file.bytesAvailable() >= least;
        if (!m_isGood || !m_isPacked)
            return;
        // The lengths of all rows of all channels stand in front of the rows.
        m_lengths = file.read(rows * m_lengthBytes);
        m_isGood = m_lengths.size() == rows * m_lengthBytes &&
                   file.seek(pixels.at + 2 + qint64(m_lengthBytes) * pixels.channels * pixels.size.height());
    }

    [[nodiscard]] bool isGood() const { return m_isGood; }

    /// Null when the file ends before.
    const uchar* next()
    {
        if (!m_isPacked)
            m_isGood = m_isGood && m_file.read(m_row.data(), m_row.size()) == m_row.size();
        else
            m_isGood = m_isGood && readPacked();
        return m_isGood ? reinterpret_cast<const uchar*>(m_row.constData()) : nullptr;
    }

private:
    bool readPacked()
    {
        const char* stored = m_lengths.constData() + m_nextRow++ * m_lengthBytes;
        const qint64 length =
            m_lengthBytes == 4 ? qFromBigEndian<quint32>(stored) : qFromBigEndian<quint16>(stored);
        return length <= 2 * m_row.size() + 2 && unpackRow(m_file.read(length), m_row);
    }

    QIODevice& m_file;
    bool m_isPacked;
    int m_lengthBytes;
    QByteArray m_row;
    QByteArray m_lengths;
    qsizetype m_nextRow = 0;
    bool m_isGood = false;
};

Sample sampleAt(const uchar* row, int x, int depth)
{
    switch (depth) {
    case 1:
        return (row[x / 8] >> (7 - x % 8) & 1) != 0 ? 0 : kFull; // What is set is black.
    case 16:
        return qFromBigEndian<quint16>(row + 2 * qsizetype(x));
    default:
        return row[x] * 257;
    }
}

/// A whole number of pixels in each direction becomes one.
class Reduction {
public:
    Reduction(QSize from, int factor, int bands)
        : m_from(from), m_factor(factor), m_bands(bands),
          m_size((from.width() + factor - 1) / factor, (from.height() + factor - 1) / factor),
          m_sums(static_cast<std::size_t>(m_size.width()) * static_cast<std::size_t>(bands)),
          m_samples(static_cast<std::size_t>(m_size.height()) * m_sums.size())
    {
    }

    [[nodiscard]] int factor() const { return m_factor; }
    [[nodiscard]] QSize size() const { return m_size; }
    [[nodiscard]] std::vector<Sample>& samples() { return m_samples; }

    void add(int x, int band, Sample sample) { m_sums[index(x / m_factor, band)] += sample; }

    /// After each row; writes a row of means when it is complete.
    void endRow(int y, int firstBand, int bands)
    {
        if ((y + 1) % m_factor != 0 && y + 1 < m_from.height())
            return;
        const int row = y / m_factor;
        const int down = y + 1 - row * m_factor;
        for (int x = 0; x < m_size.width(); ++x) {
            const int across = std::min(m_factor, m_from.width() - x * m_factor);
            const quint64 count = quint64(across) * quint64(down);
            for (int band = firstBand; band < firstBand + bands; ++band) {
                quint64& sum = m_sums[index(x, band)];
                m_samples[static_cast<std::size_t>(row) * m_sums.size() + index(x, band)] =
                    static_cast<Sample>((sum + count / 2) / count);
                sum = 0;
            }
        }
    }

private:
    [[nodiscard]] std::size_t index(int x, int band) const
    {
        return static_cast<std::size_t>(x) * static_cast<std::size_t>(m_bands) +
               static_cast<std::size_t>(band);
    }

    QSize m_from;
    int m_factor;
    int m_bands;
    QSize m_size;
    std::vector<quint64> m_sums;
    std::vector<Sample> m_samples;
};

/// The transparent colour is white that is not there, as Photoshop merges other pictures.
bool readIndexed(Rows& rows, const PhotoshopPixels& pixels, Reduction& reduction)
{
    constexpr int kColors = 256;
    for (int y = 0; y < pixels.size.height(); ++y) {
        const uchar* row = rows.next();
        if (!row)
            return false;
        for (int x = 0; x < pixels.size.width(); ++x) {
            const bool isClear = row[x] == pixels.transparent;
            for (int band = 0; band < 3; ++band) {
                const auto color = static_cast<uchar>(pixels.palette.at(band * kColors + row[x]));
                reduction.add(x, band, isClear ? kFull : Sample(color * 257));
            }
            if (pixels.hasAlpha)
                reduction.add(x, 3, isClear ? 0 : kFull);
        }
        reduction.endRow(y, 0, pixels.hasAlpha ? 4 : 3);
    }
    return true;
}

bool readPlanes(Rows& rows, const PhotoshopPixels& pixels, int bands, Reduction& reduction)
{
    for (int band = 0; band < bands; ++band) {
        for (int y = 0; y < pixels.size.height(); ++y) {
            const uchar* row = rows.next();
            if (!row)
                return false;
            for (int x = 0; x < pixels.size.width(); ++x)
                reduction.add(x, band, sampleAt(row, x, pixels.depth));
            reduction.endRow(y, band, 1);
        }
    }
    return true;
}

/// Photoshop merges onto white; this takes the white out again.
void takeOutWhite(std::vector<Sample>& samples, int bands, bool isLab)
{
    constexpr double kNeutral = 128 * 257;
    for (std::size_t at = 0; at < samples.size(); at += static_cast<std::size_t>(bands)) {
        const double opacity = samples[at + static_cast<std::size_t>(bands) - 1] / double(kFull);
        if (opacity <= 0 || opacity >= 1)
            continue;
        for (int band = 0; band + 1 < bands; ++band) {
            Sample& sample = samples[at + static_cast<std::size_t>(band)];
            const double white = isLab && band > 0 ? kNeutral : kFull;
            const double plain = (sample - (1 - opacity) * white) / opacity;
            sample = static_cast<Sample>(std::clamp(plain, 0.0, double(kFull)));
        }
    }
}

/// The library's own numbers: inks the other way round, and Lab as it is measured.
VipsPtr inLibraryForm(const VipsPtr& colors, const PhotoshopPixels& pixels)
{
    switch (pixels.model) {
    case PhotoshopPixels::Cmyk: {
        VipsPtr inks = vipsMake([&](VipsImage** out) { return vips_invert(colors.get(), out, nullptr); });
        if (inks)
            inks->Type = VIPS_INTERPRETATION_CMYK;
        return inks;
    }
    case PhotoshopPixels::Lab: {
        double factors[] = {100.0 / kFull, 1 / 257.0, 1 / 257.0};
        double offsets[] = {0, -128, -128};
        VipsPtr lab = vipsMake(
            [&](VipsImage** out) { return vips_linear(colors.get(), out, factors, offsets, 3, nullptr); });
        if (lab)
            lab->Type = VIPS_INTERPRETATION_LAB;
        return lab;
    }
    default: {
        VipsPtr same = vipsMake([&](VipsImage** out) { return vips_copy(colors.get(), out, nullptr); });
        if (same)
            same->Type = same->Bands == 1 ? VIPS_INTERPRETATION_GREY16 : VIPS_INTERPRETATION_RGB16;
        return same;
    }
    }
}

VipsPtr colorsInSrgb(const VipsPtr& colors, const PhotoshopPixels& pixels)
{
    const VipsPtr image = inLibraryForm(colors, pixels);
    if (!image)
        return nullptr;
    if (pixels.model == PhotoshopPixels::Lab)
        return vipsMake([&](VipsImage** out) {
            return vips_icc_export(image.get(), out, "output_profile", "srgb", "depth", 8, nullptr);
        });
    if (!pixels.profile.isEmpty())
        vips_image_set_blob_copy(image.get(), VIPS_META_ICC_NAME, pixels.profile.constData(),
                                 static_cast<std::size_t>(pixels.profile.size()));
    return vipsToSrgb(image.get());
}

QImage inSrgb(const VipsPtr& picture, const PhotoshopPixels& pixels)
{
    if (!pixels.hasAlpha) {
        const VipsPtr srgb = colorsInSrgb(picture, pixels);
        return srgb ? vipsToQImage(srgb.get(), false) : QImage();
    }
    const int colors = picture->Bands - 1;
    const auto bands = [&](int from, int count) {
        return vipsMake([&](VipsImage** out) {
            return vips_extract_band(picture.get(), out, from, "n", count, nullptr);
        });
    };
    const VipsPtr plain = bands(0, colors);
    const VipsPtr deep = bands(colors, 1);
    const VipsPtr srgb = plain ? colorsInSrgb(plain, pixels) : nullptr;
    const VipsPtr opacity = deep ? vipsMake([&](VipsImage** out) {
        return vips_linear1(deep.get(), out, 1 / 257.0, 0, "uchar", TRUE, nullptr);
    })
                                 : nullptr;
    if (!srgb || !opacity)
        return {};
    const VipsPtr both =
        vipsMake([&](VipsImage** out) { return vips_bandjoin2(srgb.get(), opacity.get(), out, nullptr); });
    return both ? vipsToQImage(both.get(), false) : QImage();
}

int factorFor(QSize size, QSize wanted)
{
    const int spare =
        wanted.isEmpty() ? 1 : std::min(size.width() / wanted.width(), size.height() / wanted.height());
    const double kept = double(size.width()) * size.height() / kMostPixelsKept;
    return std::max({1, spare, static_cast<int>(std::ceil(std::sqrt(kept)))});
}

} // namespace

bool hasReadablePixels(QIODevice& file, const PhotoshopPixels& pixels)
{
    const int compression = compressionOf(file, pixels);
    return pixels.isMerged && pixels.depth <= 16 && (compression == kRaw || compression == kPackBits);
}

base::Result<QImage> readPhotoshopPixels(QIODevice& file, const PhotoshopPixels& pixels, QSize wanted)
{
    ensureImageLibrary();
    const bool isIndexed = !pixels.palette.isEmpty();
    const int bands = pixels.colors() + (pixels.hasAlpha ? 1 : 0);
    const int factor = factorFor(pixels.size, wanted);
    constexpr qint64 kBytes = 12; // As they are read, and as the library makes them.
    const QSemaphoreReleaser memory =
        decodingMemory().take(kBytes * pixels.size.width() * pixels.size.height() / factor / factor);
    Rows rows(file, pixels, isIndexed ? 1 : bands);
    if (!rows.isGood())
        return damagedPicture();
    Reduction reduction(pixels.size, factor, bands);
    if (!(isIndexed ? readIndexed(rows, pixels, reduction) : readPlanes(rows, pixels, bands, reduction)))
        return damagedPicture();
    std::vector<Sample>& samples = reduction.samples();
    if (pixels.hasAlpha)
        takeOutWhite(samples, bands, pixels.model == PhotoshopPixels::Lab);
    const VipsPtr picture(vips_image_new_from_memory(samples.data(), samples.size() * sizeof(Sample),
                                                     reduction.size().width(), reduction.size().height(),
                                                     bands, VIPS_FORMAT_USHORT));
    const QImage result = picture ? inSrgb(picture, pixels) : QImage();
    if (result.isNull())
        return damagedPicture();
    return result;
}

} // namespace mosaro::importing
