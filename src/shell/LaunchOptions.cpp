#include "shell/LaunchOptions.h"

#include "base/Text.h"
#include "base/ZNUserDefaults.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QTextStream>

namespace mosaro::shell {

namespace {

constexpr int kWrongUsage = 2;

struct Options {
    QCommandLineOption help{{QStringLiteral("h"), QStringLiteral("help")}, base::text("Help.Option.Help")};
    QCommandLineOption version{{QStringLiteral("v"), QStringLiteral("version")},
                               base::text("Help.Option.Version")};
    QCommandLineOption chooser{QStringLiteral("choose-library"), base::text("Help.Option.Chooser")};
    QCommandLineOption library{QStringLiteral("library"), base::text("Help.Option.Library"),
                               QStringLiteral("PATH")};
    QCommandLineOption snapshot{QStringLiteral("snapshot"), base::text("Help.Option.Snapshot"),
                                QStringLiteral("FILE.png")};
    QCommandLineOption import{QStringLiteral("import"), base::text("Help.Option.Import")};

    void addTo(QCommandLineParser& parser) const
    {
        parser.addOptions({help, version, chooser, library, snapshot, import});
        parser.addPositionalArgument(QStringLiteral("files"), base::text("Help.Option.Files"),
                                     QStringLiteral("[FILES…]"));
    }
};

QString launchHelp()
{
    QCommandLineParser parser;
    Options().addTo(parser);
    return parser.helpText();
}

int fail(const QString& reason)
{
    QTextStream(stderr) << "mosaro: " << reason << Qt::endl;
    return kWrongUsage;
}

QString absolute(const QString& path)
{
    return path.isEmpty() ? QString() : QFileInfo(path).absoluteFilePath();
}

} // namespace

base::Result<LaunchOptions> parseLaunchOptions(const QStringList& arguments)
{
    const Options options;
    QCommandLineParser parser;
    options.addTo(parser);
    if (!parser.parse(arguments)) {
        return base::Failure{base::text("Failure.Option", parser.errorText())};
    }
    LaunchOptions result;
    result.help = parser.isSet(options.help);
    result.version = parser.isSet(options.version);
    result.chooseLibrary = parser.isSet(options.chooser);
    result.library = absolute(parser.value(options.library));
    result.snapshot = absolute(parser.value(options.snapshot));
    if (parser.isSet(options.import)) {
        if (result.snapshot.isEmpty()) {
            return base::Failure{base::text("Failure.Import.Without.Snapshot")};
        }
        for (const QString& file : parser.positionalArguments()) {
            result.imports.append(absolute(file));
        }
    }
    return result;
}

CommandLine readCommandLine(const QStringList& arguments, bool windowPossible)
{
    const auto parsed = parseLaunchOptions(arguments);
    if (!parsed) {
        return {{}, fail(parsed.reason())};
    }
    const LaunchOptions& options = parsed.value();
    if (options.help) {
        QTextStream(stdout) << launchHelp();
        return {{}, 0};
    }
    if (options.version) {
        QTextStream(stdout) << "Mosaro " << base::ZNUserDefaults::applicationVersion() << Qt::endl;
        return {{}, 0};
    }
    if (!windowPossible && options.snapshot.isEmpty()) {
        return {{}, fail(base::text("Failure.No.Display"))};
    }
    return {options, std::nullopt};
}

} // namespace mosaro::shell
