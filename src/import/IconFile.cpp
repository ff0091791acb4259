#include "import/IconFile.h"

#include "import/Analysis.h"

#include <QtEndian>
#include <algorithm>
#include <tuple>

namespace mosaro::importing {

namespace {

constexpr qsizetype kDirectoryBytes = 6;
constexpr qsizetype kEntryBytes = 16;
constexpr qsizetype kPngSizeBytes = 24; ///< Up to the height in a PNG.

template <class Number>
Number little(const QByteArray& bytes, qsizetype offset)
{
    return qFromLittleEndian<Number>(bytes.constData() + offset);
}

quint32 big32(const QByteArray& bytes, qsizetype offset)
{
    return qFromBigEndian<quint32>(bytes.constData() + offset);
}

bool mayBeSide(qint64 side)
{
    return side > 0 && side <= analysisLimits().maxIconSide;
}

struct PictureSize {
    qint64 width = 0;
    qint64 height = 0;
    int bits = 0;
};

/// By the picture's own head; the directory can't name sides above 256.
PictureSize readPictureSize(const QByteArray& file, qint64 offset, qint64 length)
{
    if (length < kPngSizeBytes || offset < 0 || offset > file.size() - length)
        return {};
    if (QByteArrayView(file).sliced(offset).startsWith("\x89PNG"))
        return {big32(file, offset + 16), big32(file, offset + 20), 32};
    // The height counts the colours and the mask.
    return {little<qint32>(file, offset + 4), std::abs(qint64(little<qint32>(file, offset + 8))) / 2,
            little<quint16>(file, offset + 14)};
}

} // namespace

IcoPictures readIcoDirectory(const QByteArray& file)
{
    if (!file.startsWith(QByteArray("\0\0\1\0", 4)) || file.size() < kDirectoryBytes)
        return {};
    const int count = little<quint16>(file, 4);
    if (file.size() < kDirectoryBytes + count * kEntryBytes)
        return {};
    IcoPictures pictures{count, 0};
    std::tuple<qint64, int> most{0, 0};
    for (int number = 0; number < count; ++number) {
        const qsizetype entry = kDirectoryBytes + number * kEntryBytes;
        const PictureSize size =
            readPictureSize(file, little<quint32>(file, entry + 12), little<quint32>(file, entry + 8));
        if (!mayBeSide(size.width) || !mayBeSide(size.height))
            return {};
        const std::tuple<qint64, int> pixels{size.width * size.height, size.bits};
        if (pixels > most) {
            most = pixels;
            pictures.largest = number;
        }
    }
    return pictures;
}

std::vector<QByteArray> jpeg2000sOfIcns(const QByteArray& file)
{
    std::vector<QByteArray> found;
    constexpr qsizetype kHead = 8; // A type of four letters and a length that counts the head.
    for (qsizetype at = kHead; at <= file.size() - kHead;) {
        const qint64 length = big32(file, at + 4);
        if (length < kHead || length > file.size() - at)
            break;
        const QByteArrayView content = QByteArrayView(file).sliced(at + kHead, length - kHead);
        if (content.startsWith(QByteArrayView("\0\0\0\x0cjP  ", 8)) || content.startsWith("\xff\x4f\xff\x51"))
            found.push_back(content.toByteArray());
        at += length;
    }
    return found;
}

bool hasOnlySmallPngs(const QByteArray& file)
{
    constexpr QByteArrayView mark("\x89PNG\r\n\x1a\n");
    for (qsizetype at = file.indexOf(mark); at >= 0; at = file.indexOf(mark, at + mark.size())) {
        if (file.size() - at < kPngSizeBytes || !mayBeSide(big32(file, at + 16)) ||
            !mayBeSide(big32(file, at + 20)))
            return false;
    }
    return true;
}

} // namespace mosaro::importing
