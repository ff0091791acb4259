#pragma once

#include "base/Ports.h"
#include "base/ZNUserDefaults.h"
#include "base/ZNUtilities.h"

#include <QObject>
#include <QStringList>
#include <QThreadPool>

namespace mosaro::organisation {

/// Takes item folders off the disk after their records are gone, in the background. The progress panel is up
/// already; it is hidden at the end. A folder that cannot be removed is passed over: verification finds it.
class StoredFileRemoval : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    StoredFileRemoval(base::ProgressSink& panel, base::ZNUtilities& utilities, base::ZNUserDefaults& defaults,
                      QObject* parent = nullptr);
    /// Waits until everything that was asked for is removed.
    ~StoredFileRemoval() override;

    /// Returns at once. An empty list only hides the panel.
    void deleteMediaFiles(const QStringList& paths);

private:
    void showProgress(int count, int total);
    void finish(int total);

    base::ProgressSink& m_panel;
    base::ZNUtilities& m_utilities;
    base::ZNUserDefaults& m_defaults;
    QThreadPool m_pool;
};

} // namespace mosaro::organisation
