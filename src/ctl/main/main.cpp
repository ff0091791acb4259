#include "base/Text.h"
#include "base/ZNUserDefaults.h"
#include "ctl/Ctl.h"
#include "import/Analysis.h"
#include "platform/Interrupts.h"
#include "platform/LinuxPlatform.h"

#include <QCoreApplication>
#include <cstdio>
#include <memory>
#include <unistd.h>

int main(int argc, char** argv)
{
    using namespace mosaro;
    const QCoreApplication application(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Mosaro"));
    QCoreApplication::setApplicationName(QStringLiteral("Mosaro"));
    base::installTexts();
    importing::setUpImageLibrary(argv[0]);

    QTextStream out(stdout);
    QTextStream err(stderr);
    const platform::Platform platform = platform::makeLinuxPlatform(false);
    base::ZNUserDefaults defaults;
    // Made by the first command that can be stopped in order; until then a signal ends the process at once.
    std::unique_ptr<platform::Interrupts> interrupts;
    const ctl::Environment environment{.out = out,
                                       .err = err,
                                       .defaults = defaults,
                                       .platform = platform,
                                       .supportFolder = platform::applicationSupportFolder(),
                                       .showsProgress = ::isatty(STDERR_FILENO) == 1,
                                       .onInterrupt =
                                           [&interrupts](QObject& receiver, std::function<void()> handler) {
                                               interrupts = std::make_unique<platform::Interrupts>();
                                               QObject::connect(interrupts.get(),
                                                                &platform::Interrupts::interrupted, &receiver,
                                                                std::move(handler));
                                           },
                                       .analyse = nullptr};
    return ctl::run(QCoreApplication::arguments().mid(1), environment);
}
