#include "import/DocumentSupport.h"

#include "base/Text.h"
#include "import/ImageOperations.h"

#include <QColorSpace>
#include <QFile>
#include <QFileInfo>

namespace mosaro::importing {

base::Result<QByteArray> readWholeFile(const QString& path, qint64 maxBytes)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return base::Failure{base::text("Failure.Image.Unreadable")};
    if (file.size() == 0)
        return base::Failure{base::text("Failure.Image.Empty")};
    if (file.size() > maxBytes)
        return base::Failure{base::text("Failure.Image.FileTooLarge")};
    QByteArray bytes = file.read(maxBytes);
    if (bytes.size() != file.size())
        return base::Failure{base::text("Failure.Image.Unreadable")};
    return bytes;
}

QImage previewOfDrawing(const QImage& drawing)
{
    if (drawing.width() > kPreviewBox.width() || drawing.height() > kPreviewBox.height())
        return scaleImage(drawing, kPreviewBox);
    if (drawing.width() > kSmallCanvas || drawing.height() > kSmallCanvas)
        return imageByScalingProportionallyToSize(drawing, kPreviewBox, std::nullopt, true);
    return imageOnSmallCanvas(drawing);
}

QImage inSrgbColors(QImage picture)
{
    const QColorSpace space = picture.colorSpace();
    if (space.isValid() && space != QColorSpace(QColorSpace::SRgb))
        picture.convertToColorSpace(QColorSpace(QColorSpace::SRgb));
    return picture;
}

} // namespace mosaro::importing
