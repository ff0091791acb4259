#include "import/ui/FailedPathModel.h"

#include "kit/Look.h"

#include <QDir>
#include <QFileInfo>

namespace mosaro::importing {

namespace {

/// The desktop's icon for the type that the name tells; the file itself may be gone.
QIcon iconOf(const QMimeDatabase& types, const QString& path)
{
    const QMimeType type = types.mimeTypeForFile(path, QMimeDatabase::MatchExtension);
    for (const QString& name : {type.iconName(), type.genericIconName()}) {
        const QIcon found = QIcon::fromTheme(name);
        if (!found.isNull()) {
            return found;
        }
    }
    const bool isPicture = type.name().startsWith(QLatin1String("image/"));
    return kit::icon(isPicture ? QStringLiteral("side_wallpaper_s") : QStringLiteral("side_pdf_s"));
}

QString shortened(const QString& path)
{
    const QString home = QDir::homePath();
    return path.startsWith(home + u'/') ? u'~' + path.mid(home.size()) : path;
}

} // namespace

FailedPathModel::FailedPathModel(std::vector<FailedPath> failed, QObject* parent)
    : QAbstractListModel(parent), m_failed(std::move(failed))
{
}

int FailedPathModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_failed.size());
}

QVariant FailedPathModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || size_t(index.row()) >= m_failed.size()) {
        return {};
    }
    const FailedPath& row = m_failed[size_t(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return shortened(row.path);
    case Qt::DecorationRole:
        return iconOf(m_types, row.path);
    case Qt::ToolTipRole:
        return row.path;
    case Qt::AccessibleTextRole:
        return QString(row.path + QStringLiteral(". ") + row.reason);
    case PathRole:
        return row.path;
    case ReasonRole:
        return row.reason;
    default:
        return {};
    }
}

QString FailedPathModel::asText() const
{
    QString text;
    for (const FailedPath& row : m_failed) {
        text += row.path + u'\t' + QString(row.reason).replace(u'\n', u' ') + u'\n';
    }
    return text;
}

} // namespace mosaro::importing
