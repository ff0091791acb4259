#pragma once

#include "base/Ports.h"
#include "kit/FilePanel.h"

class QLineEdit;
class QPushButton;

namespace mosaro::kit {

/// Asks for what is to be opened. Where files and folders can be chosen together, a folder that is selected
/// is taken with the button, and entered with a double click or Return; with nothing selected the button,
/// but not Return elsewhere, takes the folder on show. A double click takes a package.
class OpenPanel : public FilePanel {
    Q_OBJECT

public:
    explicit OpenPanel(const base::OpenPanelRequest& request, QWidget* parent = nullptr);

    /// The rows that are selected, or what was typed since, or the folder on show.
    [[nodiscard]] QStringList chosenPaths() const;

    void accept() override;

private:
    void setUpKinds();
    void followSelection();
    void showSelection();
    void takePackage(const QString& folder);
    void offerFolderOnShow();
    void offerTaking();
    [[nodiscard]] QPushButton* takeButton() const;
    [[nodiscard]] QStringList selectedRows() const;
    [[nodiscard]] bool showsSelection() const;
    [[nodiscard]] bool takesFolderOnShow() const;

    base::OpenPanelRequest m_request;
    QLineEdit* m_name = nullptr;
    QString m_package; ///< The one that a double click was about to enter.
    QString m_shown;   ///< The names of the selected rows, as they were put into the field.
};

/// What remains of the chosen paths, links followed: a request for packages takes only directories with one
/// of the suffixes.
[[nodiscard]] QStringList acceptablePaths(const QStringList& paths, const base::OpenPanelRequest& request);

} // namespace mosaro::kit
