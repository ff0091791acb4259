#include "import/CarriedPreview.h"

#include "import/DocumentSupport.h"
#include "import/EmbeddedPictures.h"

#include <QFile>

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
    const base::Result<void> opened = openDocument(file);
    if (!opened)
        return opened.failure();
    const QByteArray head = file.read(16);
    QByteArray picture = head.startsWith("PK\3\4")                         ? previewInZip(path)
                         : head == QByteArrayView("SQLite format 3\0", 16) ? previewInDatabase(path)
                                                                           : previewInFile(path);
    return picture;
}

} // namespace mosaro::importing
