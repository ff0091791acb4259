#pragma once

#include <QByteArray>
#include <QSize>
#include <QtGlobal>
#include <optional>

class QIODevice;

namespace mosaro::importing {

/// A PNG or JPEG stream inside another file.
struct EmbeddedPicture {
    qint64 offset = 0;
    qint64 length = 0;
    QSize size;

    [[nodiscard]] qint64 pixels() const { return qint64(size.width()) * size.height(); }
};

/// The PNG or JPEG stream that has most pixels, of those whose structure is sound from the first byte to the
/// last - the pixels themselves are not looked at -, within what analysisLimits() say of carried pictures. A
/// stream inside another, as a photo's own thumbnail, does not count. Reads the file once, a piece at a time;
/// stops when too much of it looks like a picture and is none.
[[nodiscard]] std::optional<EmbeddedPicture> largestEmbeddedPicture(QIODevice& file);

/// Keeps the largest of the pictures that it is offered.
class LargestPicture {
public:
    /// Bytes that are no whole PNG or JPEG from the first on, or beyond the limits, are passed over.
    void offer(const QByteArray& bytes);
    [[nodiscard]] const QByteArray& bytes() const { return m_bytes; }

private:
    QByteArray m_bytes;
    qint64 m_pixels = 0;
};

} // namespace mosaro::importing
