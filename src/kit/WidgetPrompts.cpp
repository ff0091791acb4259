#include "kit/WidgetPrompts.h"

#include "base/Text.h"
#include "kit/AlertPanel.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>

namespace mosaro::kit {

namespace {

QString nameFilter(const QStringList& suffixes)
{
    QStringList patterns;
    for (const QString& suffix : suffixes) {
        patterns << QStringLiteral("*.") + suffix;
        if (suffix.toUpper() != suffix) {
            patterns << QStringLiteral("*.") + suffix.toUpper();
        }
    }
    return QStringLiteral("%1 (%2)").arg(base::text("Label.Supported.Files"), patterns.join(u' '));
}

bool hasSuffix(const QString& path, const QStringList& suffixes)
{
    return suffixes.contains(QFileInfo(path).suffix(), Qt::CaseInsensitive);
}

QString titleOf(const QString& title, const QString& message)
{
    return message.isEmpty() ? title : message;
}

} // namespace

void setUpOpenDialog(QFileDialog& dialog, const base::OpenPanelRequest& request)
{
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setWindowTitle(titleOf(request.title, request.message));
    const bool foldersOnly = request.packages || (request.directories && !request.files);
    if (foldersOnly) {
        dialog.setFileMode(QFileDialog::Directory);
        dialog.setOption(QFileDialog::ShowDirsOnly, true);
    } else {
        dialog.setFileMode(request.multiple ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
        if (!request.suffixes.isEmpty()) {
            dialog.setNameFilters(
                {nameFilter(request.suffixes), base::text("Label.All.Files") + QStringLiteral(" (*)")});
        }
    }
    if (!request.prompt.isEmpty()) {
        dialog.setLabelText(QFileDialog::Accept, request.prompt);
    }
}

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

QStringList acceptablePaths(const QStringList& paths, const base::OpenPanelRequest& request)
{
    QStringList result;
    for (const QString& path : paths) {
        const QString clean = QDir::cleanPath(path);
        const bool isFolder = QFileInfo(clean).isDir();
        const bool fits = request.packages ? isFolder && hasSuffix(clean, request.suffixes)
                          : isFolder       ? request.directories
                                           : request.files;
        if (fits && QFileInfo(clean).isAbsolute() && !result.contains(clean)) {
            result << clean;
        }
    }
    return result;
}

QString withSuffix(const QString& path, const QString& suffix)
{
    const bool complete =
        suffix.isEmpty() || path.isEmpty() || path.endsWith(u'.' + suffix, Qt::CaseInsensitive);
    return complete ? path : path + u'.' + suffix;
}

WidgetPrompts::WidgetPrompts(std::function<QWidget*()> parent) : m_parent(std::move(parent)) {}

QWidget* WidgetPrompts::parentWindow() const
{
    QWidget* named = m_parent ? m_parent() : nullptr;
    return named != nullptr ? named : QApplication::activeWindow();
}

QString WidgetPrompts::startFolder(const QString& wanted) const
{
    for (const QString& folder : {wanted, m_lastFolder}) {
        if (!folder.isEmpty() && QFileInfo(folder).isDir()) {
            return folder;
        }
    }
    return QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
}

int WidgetPrompts::alert(const base::AlertRequest& request)
{
    return AlertPanel(request, parentWindow()).ask();
}

QStringList WidgetPrompts::openPanel(const base::OpenPanelRequest& request)
{
    QFileDialog dialog(parentWindow());
    setUpOpenDialog(dialog, request);
    dialog.setDirectory(startFolder(request.directory));
    while (dialog.exec() == QDialog::Accepted) {
        m_lastFolder = dialog.directory().absolutePath();
        const QStringList chosen = acceptablePaths(dialog.selectedFiles(), request);
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
    QFileDialog dialog(parentWindow());
    setUpSaveDialog(dialog, request);
    dialog.setDirectory(startFolder(request.directory));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return std::nullopt;
    }
    m_lastFolder = dialog.directory().absolutePath();
    return withSuffix(QDir::cleanPath(dialog.selectedFiles().constFirst()), request.suffix);
}

void WidgetPrompts::beep()
{
    QApplication::beep();
}

} // namespace mosaro::kit
