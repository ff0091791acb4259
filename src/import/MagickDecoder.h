#pragma once

#include "base/Result.h"

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>

namespace mosaro::importing {

/// What is to be had of a file that ImageMagick reads.
struct MagickRequest {
    QString path;
    QByteArray format; ///< Its name for the format, so that it does not look for itself.
    QSize size;        ///< Scaled to this; empty for the size it has.
    bool keepsAlpha = true;
    QByteArray bytes = {}; ///< The file's contents, where `path` is empty.
};

/// The first picture of the file in sRGB, by its profile if it has one. Decoded in a child under limits.
[[nodiscard]] base::Result<QImage> readByMagick(const MagickRequest& request);

} // namespace mosaro::importing
