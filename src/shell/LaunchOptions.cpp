#include "shell/LaunchOptions.h"

#include "base/Text.h"

#include <QCommandLineParser>
#include <QFileInfo>

namespace mosaro::shell {

namespace {

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

QString launchHelp()
{
    QCommandLineParser parser;
    Options().addTo(parser);
    return parser.helpText();
}

} // namespace mosaro::shell
