#pragma once

#include <QByteArray>
#include <QImage>
#include <vector>

namespace mosaro::importing {

// Icon files hold one drawing in several sizes. What their directories say is read without trust in it.

/// The pictures of a file of the ".ico" form that are worth drawing: the first one and the one with the most
/// pixels, of equal ones that with the most colours. Empty when the file is damaged or asks for too much.
struct IcoPictures {
    int count = 0;
    int largest = 0;
};
[[nodiscard]] IcoPictures readIcoDirectory(const QByteArray& file);

/// Pictures within an ".icns" file that are JPEG 2000 streams, in order.
[[nodiscard]] std::vector<QByteArray> jpeg2000sOfIcns(const QByteArray& file);

/// Whether every PNG within the file has sides that an icon may have.
[[nodiscard]] bool hasOnlySmallPngs(const QByteArray& file);

} // namespace mosaro::importing
