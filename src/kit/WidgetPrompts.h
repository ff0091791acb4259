#pragma once

#include "base/Ports.h"

class QFileDialog;
class QSettings;

namespace mosaro::kit {

class FilePanel;

/// Asks with windows. Each one is modal to the window that is active at that moment.
class WidgetPrompts : public base::Prompts {
public:
    /// `memory` keeps the size and the folder of the file panels; without it the folder lasts as long as
    /// this.
    explicit WidgetPrompts(QSettings* memory = nullptr);

    int alert(const base::AlertRequest& request) override;
    QStringList openPanel(const base::OpenPanelRequest& request) override;
    std::optional<QString> savePanel(const base::SavePanelRequest& request) override;
    void beep() override;

private:
    [[nodiscard]] QString startFolder(const QString& wanted) const;
    /// Shows it and waits; true when it was confirmed.
    [[nodiscard]] bool run(FilePanel& panel);

    QSettings* m_memory;
    QString m_lastFolder;
};

/// Sets a dialog up as the request says; without the asking, so that it can be tested.
void setUpSaveDialog(QFileDialog& dialog, const base::SavePanelRequest& request);

/// The path with the suffix of the request, added when it is missing.
[[nodiscard]] QString withSuffix(const QString& path, const QString& suffix);

} // namespace mosaro::kit
