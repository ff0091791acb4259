#include "import/LoosePicture.h"

#include "base/Text.h"
#include "base/ZNFileManager.h"
#include "import/ImageOperations.h"

#include <QLocale>
#include <QSaveFile>

namespace mosaro::importing {

namespace {

constexpr double kJpegQuality = 0.8;

/// The time of day as the user writes it, with seconds.
QString mediumTime(const QTime& time)
{
    const QLocale locale;
    QString format = locale.timeFormat(QLocale::ShortFormat);
    const qsizetype minutes = format.indexOf(QLatin1String("mm"));
    if (minutes > 0 && !format.contains(QLatin1Char('s'))) {
        format.insert(minutes + 2, format.at(minutes - 1) + QStringLiteral("ss"));
    }
    return locale.toString(time, format);
}

QByteArray encoded(const LoosePicture& picture)
{
    if (!picture.bytes.isEmpty()) {
        return picture.bytes;
    }
    return picture.suffix == QLatin1String("png") ? PNGRepresentation(picture.image)
                                                  : JPEGRepresentation(picture.image, kJpegQuality);
}

} // namespace

std::optional<ImportItem> writePicture(const LoosePicture& picture, const QString& folder)
{
    const QByteArray bytes = encoded(picture);
    if (bytes.isEmpty()) {
        return std::nullopt;
    }
    const QString path =
        base::ZNFileManager().availableFileName(folder + QLatin1Char('/') + picture.name, picture.suffix);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        return std::nullopt;
    }
    return ImportItem{path, picture.address, picture.kind, true};
}

QString dateAsString(const QDateTime& date)
{
    return date.toString(QStringLiteral("yyyyMMddHHmmss"));
}

QString screenshotDateAsString(const QString& text, const QDateTime& date)
{
    QString name = QStringLiteral("%1 %2 %3")
                       .arg(text, date.toString(QStringLiteral("yyyy-MM-dd")), mediumTime(date.time()));
    return name.replace(QLatin1Char('/'), QLatin1Char('-'));
}

LoosePicture clipboardPicture(const QImage& image, const QDateTime& now)
{
    return {.name = screenshotDateAsString(base::text("Basic.Clipboard"), now),
            .suffix = QStringLiteral("png"),
            .bytes = {},
            .image = image,
            .address = {},
            .kind = MediaKind::Other};
}

} // namespace mosaro::importing
