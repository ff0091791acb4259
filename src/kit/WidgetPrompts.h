#pragma once

#include "base/Ports.h"

#include <QDir>
#include <functional>

class QFileDialog;
class QWidget;

namespace mosaro::kit {

/// Asks with windows. Each one is modal to the window that the supplier names at that moment.
class WidgetPrompts : public base::Prompts {
public:
    /// `parent` may be empty or answer null: the active window then.
    explicit WidgetPrompts(std::function<QWidget*()> parent = {});

    int alert(const base::AlertRequest& request) override;
    QStringList openPanel(const base::OpenPanelRequest& request) override;
    std::optional<QString> savePanel(const base::SavePanelRequest& request) override;
    void beep() override;

private:
    [[nodiscard]] QWidget* parentWindow() const;
    [[nodiscard]] QString startFolder(const QString& wanted) const;

    std::function<QWidget*()> m_parent;
    QString m_lastFolder;
};

/// Sets a dialog up as the request says; without the asking, so that it can be tested.
void setUpOpenDialog(QFileDialog& dialog, const base::OpenPanelRequest& request);
void setUpSaveDialog(QFileDialog& dialog, const base::SavePanelRequest& request);

/// What remains of the chosen paths: a request for packages takes only directories with one of the suffixes.
[[nodiscard]] QStringList acceptablePaths(const QStringList& paths, const base::OpenPanelRequest& request);
/// The path with the suffix of the request, added when it is missing.
[[nodiscard]] QString withSuffix(const QString& path, const QString& suffix);

} // namespace mosaro::kit
