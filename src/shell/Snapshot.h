#pragma once

#include "base/Ports.h"

#include <QImage>
#include <QObject>
#include <QStringList>
#include <QTimer>

namespace mosaro::shell {

class AppDelegate;

/// The unattended run for a machine without a display: makes a collection, imports files on the very road of
/// a drop on the grid, tells what came in, saves a picture of the main window and ends the program.
class Snapshot : public QObject {
    Q_OBJECT

public:
    Snapshot(AppDelegate& delegate, QString picturePath, QStringList imports, QObject* parent = nullptr);

    /// Of the program; 0 once the picture is saved.
    [[nodiscard]] int status() const { return m_status; }

private:
    void makeCollection();
    void libraryShown();
    void importFiles();
    void importCompleted();
    void report();
    void lookAgain();
    void save();
    void finish(int status);

    AppDelegate& m_delegate;
    QString m_picturePath;
    QStringList m_imports;
    QString m_collectionID;
    QTimer m_timer;
    QImage m_last;
    int m_calmLooks = 0;
    int m_looks = 0;
    bool m_waitsForImport = false;
    int m_status = 1;
};

/// For a run with nobody there: what would be asked is written to standard error and answered with no.
class UnattendedPrompts : public base::Prompts {
public:
    int alert(const base::AlertRequest& request) override;
    QStringList openPanel(const base::OpenPanelRequest& request) override;
    std::optional<QString> savePanel(const base::SavePanelRequest& request) override;
    void beep() override {}
};

} // namespace mosaro::shell
