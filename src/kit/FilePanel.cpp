#include "kit/FilePanel.h"

#include "kit/Look.h"

#include <QDir>
#include <QFileIconProvider>
#include <QHeaderView>
#include <QListView>
#include <QMimeDatabase>
#include <QSplitter>
#include <QStandardPaths>
#include <QToolButton>
#include <QTreeView>
#include <memory>

namespace mosaro::kit {

namespace {

constexpr int kPlacesWidth = 170;
constexpr int kRowsWidth = 700;
constexpr int kSizeWidth = 90;
constexpr int kDateWidth = 180;

enum class Column { Name, Size, Type, Date };

QList<QUrl> places()
{
    QList<QUrl> result;
    for (const auto place :
         {QStandardPaths::HomeLocation, QStandardPaths::DesktopLocation, QStandardPaths::DocumentsLocation,
          QStandardPaths::DownloadLocation, QStandardPaths::PicturesLocation}) {
        const QUrl url = QUrl::fromLocalFile(QStandardPaths::writableLocation(place));
        if (QFileInfo(url.toLocalFile()).isDir() && !result.contains(url)) {
            result << url;
        }
    }
    result << QUrl::fromLocalFile(QDir::rootPath());
    return result;
}

/// Asked on a thread of the toolkit's, so the icons are made beforehand.
class PanelIcons : public QFileIconProvider {
public:
    [[nodiscard]] QIcon icon(IconType type) const override
    {
        switch (type) {
        case Folder:
        case Desktop:
            return m_folder;
        case Computer:
        case Drive:
        case Network:
            return m_drive;
        default:
            return m_file;
        }
    }
    [[nodiscard]] QIcon icon(const QFileInfo& info) const override
    {
        if (info.isRoot()) {
            return m_drive;
        }
        if (info.isDir()) {
            return info.filePath() == QDir::homePath() ? m_home : m_folder;
        }
        const QString type = m_types.mimeTypeForFile(info, QMimeDatabase::MatchExtension).name();
        if (type.startsWith(QStringLiteral("image/"))) {
            return m_picture;
        }
        return type.startsWith(QStringLiteral("video/")) ? m_movie : m_file;
    }

private:
    QMimeDatabase m_types;
    QIcon m_folder = kit::icon(QStringLiteral("side_folder_s"), color::amber);
    QIcon m_home = kit::icon(QStringLiteral("home"), color::amber);
    QIcon m_drive = kit::icon(QStringLiteral("drive"));
    QIcon m_picture = kit::icon(QStringLiteral("side_wallpaper_s"));
    QIcon m_movie = kit::icon(QStringLiteral("side_movie_s"));
    QIcon m_file = kit::icon(QStringLiteral("file"));
};

} // namespace

FilePanel::FilePanel(QWidget* parent) : QFileDialog(parent)
{
    setOption(QFileDialog::DontUseNativeDialog);
    setOption(QFileDialog::HideNameFilterDetails);
    const auto icons = std::make_shared<PanelIcons>();
    setIconProvider(icons.get());
    connect(this, &QObject::destroyed, [icons] {}); // The rows, which are gone by then, need them.
    setViewMode(QFileDialog::Detail);
    m_placesBefore = sidebarUrls();
    setSidebarUrls(places());
    setSizeGripEnabled(false);
    layOut();
    for (auto* button : findChildren<QToolButton*>()) {
        button->setAccessibleName(button->toolTip());
    }
}

void FilePanel::layOut()
{
    findChild<QSplitter*>(QStringLiteral("splitter"))->setSizes({kPlacesWidth, kRowsWidth});
    auto* places = findChild<QListView*>(QStringLiteral("sidebar"));
    QPalette palette = places->palette();
    palette.setColor(QPalette::Base, color::sidebar);
    places->setPalette(palette);
    auto* rows = findChild<QTreeView*>(QStringLiteral("treeView"));
    QHeaderView* header = rows->header();
    header->setStretchLastSection(false);
    header->setSectionResizeMode(int(Column::Name), QHeaderView::Stretch);
    header->resizeSection(int(Column::Size), kSizeWidth);
    header->resizeSection(int(Column::Date), kDateWidth);
    header->hideSection(int(Column::Type));
}

FilePanel::~FilePanel()
{
    setSidebarUrls(m_placesBefore);
}

} // namespace mosaro::kit
