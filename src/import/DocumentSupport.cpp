#include "import/DocumentSupport.h"

#include "base/Text.h"
#include "import/Analysis.h"
#include "import/ImageOperations.h"

#include <QColorSpace>
#include <QFileInfo>

namespace mosaro::importing {

base::Result<void> openDocument(QFile& file)
{
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly))
        return base::Failure{base::text("Failure.Image.Unreadable")};
    if (file.size() == 0)
        return base::Failure{base::text("Failure.Image.Empty")};
    if (file.size() > analysisLimits().maxFileBytes)
        return base::Failure{base::text("Failure.Image.FileTooLarge")};
    return {};
}

base::Result<QByteArray> readWholeFile(const QString& path, qint64 maxBytes)
{
    QFile file(path);
    const base::Result<void> opened = openDocument(file);
    if (!opened)
        return opened.failure();
    if (file.size() > maxBytes)
        return base::Failure{base::text("Failure.Image.FileTooLarge")};
    QByteArray bytes = file.read(maxBytes);
    if (bytes.size() != file.size())
        return base::Failure{base::text("Failure.Image.Unreadable")};
    return bytes;
}

PlainName::PlainName(const QString& path)
    : m_isValid(m_folder.isValid() && QFile::link(QFileInfo(path).absoluteFilePath(), this->path()))
{
}

QImage previewOfDrawing(const QImage& drawing, QSizeF points)
{
    if (points.isEmpty())
        points = drawing.size();
    if (points.width() > kPreviewBox.width() || points.height() > kPreviewBox.height())
        return scaleImage(drawing, kPreviewBox);
    const QSize size = points.toSize().expandedTo({1, 1});
    const QImage natural = drawing.size() == size
                               ? drawing
                               : drawing.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    if (size.width() > kSmallCanvas || size.height() > kSmallCanvas)
        return imageByScalingProportionallyToSize(natural, kPreviewBox, std::nullopt, true);
    return imageOnSmallCanvas(natural);
}

QImage inSrgbColors(QImage picture)
{
    const QColorSpace space = picture.colorSpace();
    if (space.isValid() && space != QColorSpace(QColorSpace::SRgb))
        picture.convertToColorSpace(QColorSpace(QColorSpace::SRgb));
    return picture;
}

} // namespace mosaro::importing
