#include "import/CarriedPreview.h"

#include "base/Text.h"
#include "import/Analysis.h"
#include "import/EmbeddedPictures.h"

#include <QFile>
#include <QFileInfo>

namespace mosaro::importing {

bool isPreviewName(const QString& name)
{
    constexpr std::array kWords = {QLatin1String("preview"), QLatin1String("thumbnail"),
                                   QLatin1String("quicklook")};
    return std::any_of(kWords.begin(), kWords.end(),
                       [&](QLatin1String word) { return name.contains(word, Qt::CaseInsensitive); });
}

QByteArray previewInFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const std::optional<EmbeddedPicture> picture = largestEmbeddedPicture(file);
    return picture && file.seek(picture->offset) ? file.read(picture->length) : QByteArray();
}

base::Result<QByteArray> carriedPreview(const QString& path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return base::Failure{base::text("Failure.Image.Unreadable")};
    if (file.size() == 0)
        return base::Failure{base::text("Failure.Image.Empty")};
    if (file.size() > analysisLimits().maxFileBytes)
        return base::Failure{base::text("Failure.Image.FileTooLarge")};
    const QByteArray head = file.read(16);
    QByteArray picture = head.startsWith("PK\3\4")                         ? previewInZip(path)
                         : head == QByteArrayView("SQLite format 3\0", 16) ? previewInDatabase(path)
                                                                           : previewInFile(path);
    if (picture.isEmpty())
        return base::Failure{base::text("Failure.Design.NoPreview")};
    return picture;
}

} // namespace mosaro::importing
