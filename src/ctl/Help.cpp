#include "ctl/Help.h"

#include "base/Text.h"

namespace mosaro::ctl {

using base::text;

namespace {

constexpr int kTextColumn = 24;

QString row(const QString& left, const QString& right)
{
    return QStringLiteral("  ") + left.leftJustified(kTextColumn) + u' ' + right + u'\n';
}

QString optionRows(const std::vector<OptionRow>& options)
{
    QString rows;
    for (const OptionRow& option : options) {
        QString left = QStringLiteral("--") + QLatin1String(option.name);
        if (option.value) {
            left += u' ' + QLatin1String(option.value);
        }
        rows += row(left, text(option.textKey));
    }
    return rows;
}

QString signature(const Command& command)
{
    return (QLatin1String(command.name) + u' ' + QLatin1String(command.operands)).trimmed();
}

} // namespace

const std::vector<OptionRow>& generalOptions()
{
    static const std::vector<OptionRow> kOptions{{"library", "PATH", "Hint.Ctl.Library"},
                                                 {"json", nullptr, "Hint.Ctl.Json"},
                                                 {"help", nullptr, "Hint.Ctl.Help"},
                                                 {"version", nullptr, "Hint.Ctl.Version"}};
    return kOptions;
}

QString generalHelp()
{
    QString help = text("Hint.Ctl.Usage", QStringLiteral("mosaroctl [--library PATH] [--json] COMMAND")) +
                   QStringLiteral("\n\n") + text("Hint.Ctl.Commands") + u'\n';
    for (const Command& command : commands()) {
        help += row(signature(command), text(command.textKey));
    }
    return help + u'\n' + text("Hint.Ctl.Options") + u'\n' + optionRows(generalOptions()) + u'\n' +
           text("Hint.Ctl.ExitStatus") + u'\n';
}

QString commandHelp(const Command& command)
{
    const QString form = QStringLiteral("mosaroctl [--library PATH] [--json] ") +
                         QLatin1String(command.name) +
                         (command.options.empty() ? QString() : QStringLiteral(" [OPTION...]")) +
                         (*command.operands ? u' ' + QLatin1String(command.operands) : QString());
    QString help = text("Hint.Ctl.Usage", form) + QStringLiteral("\n\n") + text(command.textKey) + u'\n';
    return help + u'\n' + text("Hint.Ctl.Options") + u'\n' + optionRows(command.options) +
           optionRows(generalOptions()) + (command.details ? u'\n' + command.details() : QString());
}

} // namespace mosaro::ctl
