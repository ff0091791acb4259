#include "base/ZNFileManager.h"

#include "base/Text.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <array>
#include <cmath>

namespace mosaro::base {

namespace {

constexpr int kLastNumber = 9998;

/// A link that leads nowhere takes its name, too.
bool isTaken(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

QString freeName(const QString& path, const QString& ending)
{
    const QString plain = path + ending;
    if (!isTaken(plain))
        return plain;
    for (int number = 2; number <= kLastNumber; ++number) {
        const QString name =
            path + QStringLiteral(" (") + QString::number(number) + QLatin1Char(')') + ending;
        if (!isTaken(name))
            return name;
    }
    return plain;
}

/// At most so many decimals, without zeros at the end.
QString shortNumber(double value, int decimals)
{
    QString number = QString::number(value, 'f', decimals);
    if (decimals == 0)
        return number;
    while (number.endsWith(QLatin1Char('0')))
        number.chop(1);
    if (number.endsWith(QLatin1Char('.')))
        number.chop(1);
    return number;
}

QString inUnit(int unit, const QString& number)
{
    switch (unit) {
    case 0:
        return text("Basic.Size.KB", number);
    case 1:
        return text("Basic.Size.MB", number);
    case 2:
        return text("Basic.Size.GB", number);
    case 3:
        return text("Basic.Size.TB", number);
    default:
        return text("Basic.Size.PB", number);
    }
}

} // namespace

ZNFileManager& ZNFileManager::sharedManager()
{
    static ZNFileManager manager;
    return manager;
}

QString ZNFileManager::availableFolderName(const QString& path) const
{
    return freeName(path, {});
}

QString ZNFileManager::availableFileName(const QString& path, const QString& withSuffix) const
{
    return freeName(path, QLatin1Char('.') + withSuffix);
}

QString ZNFileManager::fileSizeAsString(qint64 bytes) const
{
    constexpr std::array kDecimals{0, 1, 2, 2, 2};
    if (bytes <= 0)
        return text("Basic.Size.Zero");
    if (bytes == 1)
        return text("Basic.Size.Byte");
    if (bytes < 1000)
        return text("Basic.Size.Bytes", QString::number(bytes));
    double value = double(bytes) / 1000;
    for (size_t unit = 0;; ++unit) {
        const QString number = shortNumber(value, kDecimals[unit]);
        // What rounds up to a thousand belongs to the next unit.
        if (number.toDouble() < 1000 || unit + 1 == kDecimals.size())
            return inUnit(int(unit), number);
        value /= 1000;
    }
}

bool ZNFileManager::createDirectoryAtPath(const QString& path) const
{
    return !path.isEmpty() && !isTaken(path) && QDir().mkpath(path);
}

bool ZNFileManager::removeItemAtPath(const QString& path) const
{
    const QFileInfo info(path);
    // A link to a folder goes, never what it leads to.
    if (info.isDir() && !info.isSymLink())
        return QDir(path).removeRecursively();
    return !path.isEmpty() && QFile::remove(path);
}

} // namespace mosaro::base
