#include "kit/OpenPanel.h"

#include "base/Text.h"

#include <QDialogButtonBox>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>

namespace mosaro::kit {

namespace {

QString nameFilter(const QStringList& suffixes)
{
    QStringList patterns;
    for (const QString& suffix : suffixes) {
        patterns << QStringLiteral("*.") + suffix.toLower();
    }
    patterns.removeDuplicates();
    return QStringLiteral("%1 (%2)").arg(base::text("Label.Supported.Files"), patterns.join(u' '));
}

bool hasSuffix(const QString& path, const QStringList& suffixes)
{
    return suffixes.contains(QFileInfo(path).suffix(), Qt::CaseInsensitive);
}

/// The names as the field writes them: several ones in quotes.
QString joinedNames(const QStringList& paths)
{
    QStringList names;
    for (const QString& path : paths) {
        names << QFileInfo(path).fileName();
    }
    return names.size() < 2 ? names.join(QString()) : u'"' + names.join(QStringLiteral("\" \"")) + u'"';
}

} // namespace

OpenPanel::OpenPanel(const base::OpenPanelRequest& request, QWidget* parent)
    : FilePanel(parent), m_request(request)
{
    setAcceptMode(QFileDialog::AcceptOpen);
    setOption(QFileDialog::ReadOnly); // Opening makes, renames and deletes nothing.
    setWindowTitle(request.message.isEmpty() ? request.title : request.message);
    setUpKinds();
    if (!request.prompt.isEmpty()) {
        setLabelText(QFileDialog::Accept, request.prompt);
    }
    if (request.files && request.directories && !request.packages) {
        followSelection();
    }
    if (request.packages) {
        connect(this, &QFileDialog::directoryEntered, this, &OpenPanel::takePackage);
    }
}

void OpenPanel::takePackage(const QString& folder)
{
    if (hasSuffix(folder, m_request.suffixes)) {
        m_package = QDir::cleanPath(folder);
        setDirectory(QFileInfo(m_package).path());
        done(QDialog::Accepted);
    }
}

void OpenPanel::setUpKinds()
{
    if (m_request.packages || !m_request.files) {
        setFileMode(QFileDialog::Directory);
        setOption(QFileDialog::ShowDirsOnly);
        return;
    }
    setFileMode(m_request.multiple ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
    if (!m_request.suffixes.isEmpty()) {
        setNameFilters(
            {nameFilter(m_request.suffixes), base::text("Label.All.Files") + QStringLiteral(" (*)")});
    }
}

void OpenPanel::followSelection()
{
    const auto* rows = findChild<QListView*>(QStringLiteral("listView"));
    m_name = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    connect(rows->selectionModel(), &QItemSelectionModel::selectionChanged, this, &OpenPanel::showSelection);
    connect(m_name, &QLineEdit::textChanged, this, &OpenPanel::offerFolderOnShow);
    connect(this, &QFileDialog::directoryEntered, this, &OpenPanel::offerFolderOnShow, Qt::QueuedConnection);
    QMetaObject::invokeMethod(this, &OpenPanel::offerFolderOnShow, Qt::QueuedConnection);
}

QPushButton* OpenPanel::takeButton() const
{
    return findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"))->button(QDialogButtonBox::Open);
}

/// The toolkit greys the button out while no name is given, and gives it a text of its own.
void OpenPanel::offerFolderOnShow()
{
    if (takesFolderOnShow()) {
        offerTaking();
    }
}

void OpenPanel::offerTaking()
{
    QPushButton* take = takeButton();
    take->setEnabled(true);
    if (!m_request.prompt.isEmpty()) {
        take->setText(m_request.prompt);
    }
}

QStringList OpenPanel::selectedRows() const
{
    QStringList paths;
    const auto* rows = findChild<QListView*>(QStringLiteral("listView"));
    const QModelIndexList indexes = rows->selectionModel()->selectedRows();
    for (const QModelIndex& index : indexes) {
        paths << index.data(QFileSystemModel::FilePathRole).toString();
    }
    return paths;
}

void OpenPanel::showSelection()
{
    if (m_name->hasFocus()) {
        return; // The rows follow what is typed.
    }
    const QString before = std::exchange(m_shown, joinedNames(selectedRows()));
    if (m_shown.isEmpty()) {
        if (m_name->text() == before) {
            m_name->clear();
        }
        return;
    }
    {
        // Otherwise the toolkit would look the names up and offer to enter the folders.
        const QSignalBlocker quiet(m_name);
        m_name->setText(m_shown);
    }
    offerTaking();
}

bool OpenPanel::showsSelection() const
{
    return m_name != nullptr && !m_shown.isEmpty() && m_name->text() == m_shown;
}

bool OpenPanel::takesFolderOnShow() const
{
    return m_name != nullptr && m_name->text().isEmpty();
}

QStringList OpenPanel::chosenPaths() const
{
    if (takesFolderOnShow()) {
        return {directory().absolutePath()};
    }
    if (!m_package.isEmpty()) {
        return {m_package};
    }
    return showsSelection() ? selectedRows() : selectedFiles();
}

void OpenPanel::accept()
{
    m_package.clear();
    if (takesFolderOnShow() && !takeButton()->hasFocus()) {
        return; // A stray Return must not bring in a whole folder.
    }
    if (showsSelection() || takesFolderOnShow()) {
        done(QDialog::Accepted); // Without the toolkit's own look at the names.
    } else {
        FilePanel::accept();
    }
}

QStringList acceptablePaths(const QStringList& paths, const base::OpenPanelRequest& request)
{
    QStringList result;
    for (const QString& path : paths) {
        const QFileInfo given(QDir::cleanPath(path));
        const QString clean = given.isSymLink() ? given.canonicalFilePath() : given.filePath();
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

} // namespace mosaro::kit
