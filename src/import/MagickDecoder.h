#pragma once

#include "base/Result.h"

#include <QByteArray>
#include <QSize>
#include <QString>

namespace mosaro::importing {

/// What is to be had of a file that ImageMagick reads.
struct MagickRequest {
    QString path;
    QByteArray format; ///< Its name for the format, so that it does not look for itself.
    QSize size;        ///< Scaled to this; empty for the size it has.
    bool keepsAlpha = true;
};

/// The first picture of the file as the bytes of a TIFF of 8 bits with the file's colours and profile. Runs
/// in a child under limits.
[[nodiscard]] base::Result<QByteArray> decodeWithMagick(const MagickRequest& request);

} // namespace mosaro::importing
