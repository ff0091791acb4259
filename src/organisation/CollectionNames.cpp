#include "organisation/CollectionNames.h"

#include "base/Text.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>

namespace mosaro::organisation {

QString availableName(const QString& name, const QStringList& titles)
{
    const QStringList taken = titles.filter(name, Qt::CaseSensitive);
    QString free = name;
    for (int number = 2; !taken.isEmpty() && (number == 2 || taken.contains(free)); ++number) {
        free = QStringLiteral("%1 (%2)").arg(name, QString::number(number));
    }
    return free;
}

QString availableCollectionName(const QString& name, const NodeList& inArray)
{
    QStringList titles;
    for (const CollectionNode* node : inArray) {
        titles.append(node->title);
    }
    return availableName(name, titles);
}

QString collectionNameFromPaths(const QStringList& paths)
{
    const auto folder =
        std::find_if(paths.begin(), paths.end(), [](const QString& path) { return QFileInfo(path).isDir(); });
    if (folder == paths.end()) {
        return base::text("Basic.Untitled.Collection");
    }
    QString name = QFileInfo(QDir::cleanPath(*folder)).fileName();
    if (paths.size() >= 2) {
        name += QLatin1Char(' ') + base::text("Basic.More");
    }
    name.remove(QStringLiteral(".app"));
    return name.isEmpty() ? base::text("Basic.Untitled.Collection") : name;
}

} // namespace mosaro::organisation
