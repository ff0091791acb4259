#pragma once

#include "base/ZNUserDefaults.h"
#include "import/Analysis.h"
#include "platform/Ports.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QTextStream>
#include <functional>

namespace mosaro::ctl {

/// What the process ends with.
enum ExitStatus { kAllWell = 0, kFailed = 1, kWrongUsage = 2, kSomeItemsFailed = 3 };

/// What a call works with: the streams and the services that the program chose. All outlive the call.
struct Environment {
    QTextStream& out;
    QTextStream& err;
    base::ZNUserDefaults& defaults;
    const platform::Platform& platform;
    QString supportFolder;
    bool showsProgress = false; ///< A person watches the error stream.
    /// Calls `handler` on the main thread when the user interrupts, as long as `receiver` lives. Null: never.
    std::function<void(QObject& receiver, std::function<void()> handler)> onInterrupt;
    /// Null: the real one.
    std::function<importing::AnalysisResult(const importing::AnalysisRequest&)> analyse;
};

/// The whole program: one command and its options, without the program's name. Gives the exit status. Needs
/// an application object, since an import runs its event loop.
int run(const QStringList& arguments, const Environment& environment);

} // namespace mosaro::ctl
