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
#include <cstdio>
#include <exception>

namespace {

using namespace mosaro;

bool hasDisplay()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

void nameApplication(QCoreApplication& application)
{
    application.setOrganizationName(QStringLiteral("Mosaro"));
    application.setApplicationName(QStringLiteral("Mosaro"));
    application.setApplicationVersion(base::ZNUserDefaults::applicationVersion());
    QGuiApplication::setDesktopFileName(QStringLiteral("org.mosaro.Mosaro"));
}

int start(int argc, char** argv)
{
    const bool windowPossible = hasDisplay() || qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
    shell::LaunchOptions options;
    {
        // What needs no window is answered without one, so that a broken display is no hindrance.
        QCoreApplication application(argc, argv);
        base::installTexts();
        shell::CommandLine commandLine =
            shell::readCommandLine(QCoreApplication::arguments(), windowPossible);
        if (commandLine.status) {
            return *commandLine.status;
        }
        options = std::move(commandLine.options);
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

} // namespace

int main(int argc, char** argv)
{
    try {
        return start(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "mosaro: %s\n", error.what());
        return 1;
    }
}
