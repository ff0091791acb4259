#include "platform/linux/AttributeFileIndex.h"

#include <QFile>
#include <cerrno>
#include <sys/xattr.h>

namespace mosaro::platform {

namespace {

constexpr int kMaximumBytes = 64 * 1024;
constexpr int kLastLabel = 7;
constexpr auto kWhereFrom = "user.xdg.origin.url";
constexpr auto kComment = "user.xdg.comment";
constexpr auto kTags = "user.xdg.tags";
constexpr auto kLabel = "user.mosaro.label";

/// Empty when it is missing, longer than an attribute of ours may be, or not to be had.
QString attribute(const QByteArray& path, const char* name)
{
    const ssize_t size = getxattr(path.constData(), name, nullptr, 0);
    if (size <= 0 || size > kMaximumBytes)
        return {};
    QByteArray value(size, '\0');
    const ssize_t got = getxattr(path.constData(), name, value.data(), size_t(size));
    if (got < 0)
        return {};
    value.truncate(got);
    // Some writers count the closing zero in.
    while (value.endsWith('\0'))
        value.chop(1);
    return QString::fromUtf8(value);
}

QStringList tagsOf(const QString& text)
{
    QStringList tags;
    const QStringList parts = text.split(QLatin1Char(','));
    for (const QString& part : parts) {
        const QString tag = part.trimmed();
        if (!tag.isEmpty() && !tags.contains(tag))
            tags.append(tag);
    }
    return tags;
}

int labelOf(const QString& text)
{
    const int number = text.trimmed().toInt();
    return number > 0 && number <= kLastLabel ? number : 0;
}

} // namespace

FileIndexEntry AttributeFileIndex::read(const QString& path) const
{
    const QByteArray name = QFile::encodeName(path);
    FileIndexEntry entry;
    entry.whereFrom = attribute(name, kWhereFrom).section(QLatin1Char('\n'), 0, 0).trimmed();
    entry.comment = attribute(name, kComment);
    entry.tags = tagsOf(attribute(name, kTags));
    entry.labelNumber = labelOf(attribute(name, kLabel));
    return entry;
}

bool AttributeFileIndex::writeLabelNumber(const QString& path, int labelNumber)
{
    if (labelNumber < 0 || labelNumber > kLastLabel)
        return false;
    const QByteArray name = QFile::encodeName(path);
    if (labelNumber == 0)
        return removexattr(name.constData(), kLabel) == 0 || errno == ENODATA;
    const QByteArray value = QByteArray::number(labelNumber);
    return setxattr(name.constData(), kLabel, value.constData(), size_t(value.size()), 0) == 0;
}

} // namespace mosaro::platform
