#include "import/MagickDecoder.h"

#include "base/Text.h"
#include "import/Analysis.h"
#include "import/BitmapDecoder.h"
#include "import/ChildProcess.h"
#include "import/DocumentSupport.h"

#include <QStandardPaths>

namespace mosaro::importing {

namespace {

/// Under its versioned name where there is one: the plain one may be another program's.
QString program()
{
    const QString versioned = QStandardPaths::findExecutable(QStringLiteral("convert-im6"));
    return versioned.isEmpty() ? QStringLiteral("convert") : versioned;
}

QStringList argumentsFor(const MagickRequest& request, const QString& name)
{
    // What does not fit into memory fails; nothing is swapped out into files.
    QStringList arguments = {QStringLiteral("-limit"), QStringLiteral("thread"), QStringLiteral("1"),
                             QStringLiteral("-limit"), QStringLiteral("disk"),   QStringLiteral("0")};
    arguments.append(QStringLiteral("%1:%2[0]").arg(QString::fromLatin1(request.format), name));
    if (!request.keepsAlpha)
        arguments.append({QStringLiteral("-alpha"), QStringLiteral("off")});
    if (!request.size.isEmpty())
        arguments.append({QStringLiteral("-scale"),
                          QStringLiteral("%1x%2!").arg(request.size.width()).arg(request.size.height())});
    arguments.append({QStringLiteral("-depth"), QStringLiteral("8"), QStringLiteral("-compress"),
                      QStringLiteral("none"), QStringLiteral("tiff:-")});
    return arguments;
}

QImage pictureOfTiff(const QByteArray& bytes)
{
    ensureImageLibrary();
    const VipsPtr image = vipsMake([&](VipsImage** out) {
        return vips_tiffload_buffer(const_cast<char*>(bytes.constData()),
                                    static_cast<std::size_t>(bytes.size()), out, nullptr);
    });
    const VipsPtr srgb = image ? vipsToSrgb(image.get()) : nullptr;
    return srgb ? vipsToQImage(srgb.get(), false) : QImage();
}

} // namespace

base::Result<QImage> readByMagick(const MagickRequest& request)
{
    const AnalysisLimits& limits = analysisLimits();
    const ChildLimits child{limits.maxSeconds, limits.maxMagickMemory, limits.maxMagickOutput};
    base::Result<QByteArray> tiff = base::Failure{base::text("Failure.Image.Unreadable")};
    if (request.path.isEmpty())
        tiff = runChild(program(), argumentsFor(request, QStringLiteral("-")), child, request.bytes);
    else if (const PlainName name(request.path); name.isValid())
        tiff = runChild(program(), argumentsFor(request, name.path()), child);
    if (!tiff)
        return tiff.failure();
    const QImage picture = pictureOfTiff(tiff.value());
    if (picture.isNull())
        return damagedPicture();
    return picture;
}

} // namespace mosaro::importing
