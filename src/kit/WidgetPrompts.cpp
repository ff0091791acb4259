#include "kit/WidgetPrompts.h"

#include "base/Text.h"
#include "kit/AlertPanel.h"
#include "kit/OpenPanel.h"

#include <QApplication>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

namespace mosaro::kit {

namespace {

constexpr QSize kPanelSize(900, 560);
constexpr auto kSizeKey = "MR_FILE_PANEL_SIZE";
constexpr auto kFolderKey = "MR_FILE_PANEL_FOLDER";

} // namespace

void setUpSaveDialog(QFileDialog& dialog, const base::SavePanelRequest& request)
{
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setWindowTitle(request.title);
    dialog.setDefaultSuffix(request.suffix);
    dialog.selectFile(withSuffix(request.name, request.suffix));
    if (!request.prompt.isEmpty()) {
        dialog.setLabelText(QFileDialog::Accept, request.prompt);
    }
    if (!request.nameLabel.isEmpty()) {
        dialog.setLabelText(QFileDialog::FileName, request.nameLabel);
    }
}

QString withSuffix(const QString& path, const QString& suffix)
{
    const bool complete =
        suffix.isEmpty() || path.isEmpty() || path.endsWith(u'.' + suffix, Qt::CaseInsensitive);
    return complete ? path : path + u'.' + suffix;
}

WidgetPrompts::WidgetPrompts(QSettings* memory) : m_memory(memory)
{
    if (m_memory != nullptr) {
        m_lastFolder = m_memory->value(QLatin1String(kFolderKey)).toString();
    }
}

QString WidgetPrompts::startFolder(const QString& wanted) const
{
    for (const QString& folder :
         {wanted, m_lastFolder, QStandardPaths::writableLocation(QStandardPaths::PicturesLocation)}) {
        if (!folder.isEmpty() && QFileInfo(folder).isDir()) {
            return folder;
        }
    }
    return QDir::homePath();
}

bool WidgetPrompts::run(FilePanel& panel)
{
    const QVariant size = m_memory != nullptr ? m_memory->value(QLatin1String(kSizeKey)) : QVariant();
    panel.resize(size.isValid() ? size.toSize() : kPanelSize);
    const bool confirmed = panel.exec() == QDialog::Accepted;
    if (confirmed) {
        m_lastFolder = panel.directory().absolutePath();
    }
    if (m_memory != nullptr) {
        m_memory->setValue(QLatin1String(kSizeKey), panel.size());
        m_memory->setValue(QLatin1String(kFolderKey), m_lastFolder);
    }
    return confirmed;
}

int WidgetPrompts::alert(const base::AlertRequest& request)
{
    return AlertPanel(request, QApplication::activeWindow()).ask();
}

QStringList WidgetPrompts::openPanel(const base::OpenPanelRequest& request)
{
    OpenPanel panel(request, QApplication::activeWindow());
    panel.setDirectory(startFolder(request.directory));
    while (run(panel)) {
        const QStringList chosen = acceptablePaths(panel.chosenPaths(), request);
        if (!chosen.isEmpty()) {
            return chosen;
        }
        const QString suffixes = request.suffixes.join(QStringLiteral(", "));
        alert({base::text("Error.Cannot.Choose"), {}, {}, base::text("Error.Cannot.Choose.Needs", suffixes)});
    }
    return {};
}

std::optional<QString> WidgetPrompts::savePanel(const base::SavePanelRequest& request)
{
    FilePanel panel(QApplication::activeWindow());
    setUpSaveDialog(panel, request);
    panel.setDirectory(startFolder(request.directory));
    if (!run(panel) || panel.selectedFiles().isEmpty()) {
        return std::nullopt;
    }
    return withSuffix(QDir::cleanPath(panel.selectedFiles().constFirst()), request.suffix);
}

void WidgetPrompts::beep()
{
    QApplication::beep();
}

} // namespace mosaro::kit
