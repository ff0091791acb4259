#include "ctl/Ctl.h"

#include "base/Text.h"
#include "ctl/Command.h"
#include "ctl/Help.h"

#include <QCommandLineParser>

namespace mosaro::ctl {

using base::text;

namespace {

void addOptions(QCommandLineParser& line, const std::vector<OptionRow>& options)
{
    for (const OptionRow& option : options) {
        line.addOption(
            {QLatin1String(option.name), QString(), QLatin1String(option.value ? option.value : "")});
    }
    line.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsOptions);
}

/// Position of the command among the arguments: the first that is neither an option nor the value of one; -1
/// for none.
qsizetype commandPosition(const QStringList& arguments)
{
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == QLatin1String("--library")) {
            ++i;
        } else if (!arguments[i].startsWith(u'-')) {
            return i;
        }
    }
    return -1;
}

/// What the parser found, without the full stop: the sentence goes on.
QString faultOf(const QCommandLineParser& line)
{
    QString fault = line.errorText();
    while (fault.endsWith(u'.')) {
        fault.chop(1);
    }
    return fault;
}

int complain(const Environment& environment, const QString& reason)
{
    environment.err << "mosaroctl: " << oneLine(reason) << Qt::endl;
    return kWrongUsage;
}

bool parse(QCommandLineParser& line, const QStringList& arguments)
{
    // The parser takes the first for the program's name.
    return line.parse(QStringList(QStringLiteral("mosaroctl")) + arguments);
}

int runWithoutCommand(const QStringList& arguments, const Environment& environment)
{
    QCommandLineParser line;
    addOptions(line, generalOptions());
    if (!parse(line, arguments)) {
        return complain(environment, text("Failure.Ctl.General", faultOf(line)));
    }
    if (line.isSet(QStringLiteral("version"))) {
        environment.out << "mosaroctl " << base::ZNUserDefaults::applicationVersion() << Qt::endl;
        return kAllWell;
    }
    if (line.isSet(QStringLiteral("help"))) {
        environment.out << generalHelp() << Qt::flush;
        return kAllWell;
    }
    return complain(environment, text("Failure.Ctl.NoCommand"));
}

bool hasRightOperands(const Command& command, qsizetype count)
{
    return count >= command.least && (command.most < 0 || count <= command.most);
}

int runCommand(const Command& command, const QStringList& arguments, const Environment& environment)
{
    QCommandLineParser line;
    addOptions(line, generalOptions());
    addOptions(line, command.options);
    const bool isParsed = parse(line, arguments);
    if (isParsed && line.isSet(QStringLiteral("help"))) {
        environment.out << commandHelp(command) << Qt::flush;
        return kAllWell;
    }
    Session session(environment, line.value(QStringLiteral("library")), line.isSet(QStringLiteral("json")));
    if (!isParsed) {
        return session.wrongUsage(faultOf(line), command.name);
    }
    if (!hasRightOperands(command, line.positionalArguments().size())) {
        return session.wrongUsage(*command.operands
                                      ? text("Failure.Ctl.Operands", QLatin1String(command.operands))
                                      : text("Failure.Ctl.NoOperands"),
                                  command.name);
    }
    return command.perform(session, line);
}

} // namespace

int run(const QStringList& arguments, const Environment& environment)
{
    const qsizetype position = commandPosition(arguments);
    if (position < 0) {
        return runWithoutCommand(arguments, environment);
    }
    QStringList rest = arguments;
    QString name = rest.takeAt(position);
    // "help COMMAND" is "COMMAND --help", and "help" alone the list of commands.
    if (name == QLatin1String("help")) {
        const bool isAlone = position >= rest.size();
        name = isAlone ? QString() : rest.takeAt(position);
        rest = {QStringLiteral("--help")};
        if (isAlone) {
            return runWithoutCommand(rest, environment);
        }
    }
    const Command* command = findCommand(name);
    if (!command) {
        return complain(environment, text("Failure.Ctl.UnknownCommand", name));
    }
    return runCommand(*command, rest, environment);
}

} // namespace mosaro::ctl
