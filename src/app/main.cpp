// Mosaro, the application: reads the command line, chooses the real platform and puts the parts together.

#include "base/Text.h"
#include "base/ZNUserDefaults.h"
#include "import/Analysis.h"
#include "kit/Look.h"
#include "platform/LinuxPlatform.h"
#include "shell/Application.h"
#include "shell/LaunchOptions.h"

#include <QApplication>
#include <QIcon>
#include <QTextStream>

namespace {

using namespace mosaro;

constexpr int kWrongUsage = 2;

bool hasDisplay()
{
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
}

void nameApplication(QCoreApplication& application)
{
    application.setOrganizationName(QStringLiteral("Mosaro"));
    application.setApplicationName(QStringLiteral("Mosaro"));
    application.setApplicationVersion(base::ZNUserDefaults::applicationVersion());
    QGuiApplication::setDesktopFileName(QStringLiteral("org.mosaro.Mosaro"));
}

int fail(const QString& reason)
{
    QTextStream(stderr) << "mosaro: " << reason << Qt::endl;
    return kWrongUsage;
}

/// Answers what needs no window. Nothing: go on.
std::optional<int> answerOnCommandLine(const base::Result<shell::LaunchOptions>& options, bool windowPossible)
{
    if (!options) {
        return fail(options.reason());
    }
    if (options.value().help) {
        QTextStream(stdout) << shell::launchHelp();
        return 0;
    }
    if (options.value().version) {
        QTextStream(stdout) << "Mosaro " << base::ZNUserDefaults::applicationVersion() << Qt::endl;
        return 0;
    }
    if (!windowPossible && options.value().snapshot.isEmpty()) {
        return fail(base::text("Failure.No.Display"));
    }
    return std::nullopt;
}

} // namespace

int main(int argc, char** argv)
{
    const bool windowPossible = hasDisplay() || qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
    shell::LaunchOptions options;
    {
        // What needs no window is answered without one, so that a broken display is no hindrance.
        QCoreApplication application(argc, argv);
        base::installTexts();
        const auto parsed = shell::parseLaunchOptions(QCoreApplication::arguments());
        if (const std::optional<int> status = answerOnCommandLine(parsed, windowPossible)) {
            return *status;
        }
        options = parsed.value();
    }
    if (!windowPossible) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(argc, argv);
    nameApplication(application);
    QApplication::setQuitOnLastWindowClosed(false);
    base::installTexts();
    importing::setUpImageLibrary(argv[0]);
    kit::installLook(application);
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/org.mosaro.Mosaro.svg")));
    return shell::Application(platform::makeLinuxPlatform(true), std::move(options)).run();
}
