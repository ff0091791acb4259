// smart: collections that find their items by rules.
#include "base/Text.h"
#include "ctl/Command.h"
#include "ctl/RecordJson.h"
#include "ctl/SmartRulesJson.h"
#include "organisation/CollectionCommands.h"
#include "organisation/SmartRuleTerm.h"

namespace mosaro::ctl {

using base::text;

namespace {

/// What is wrong with the call; empty for nothing.
QString usageFault(const QCommandLineParser& line)
{
    const QStringList operands = line.positionalArguments();
    if (operands.constFirst() != QLatin1String("add")) {
        return text("Failure.Ctl.Operands", QStringLiteral("add TITLE"));
    }
    if (!organisation::CollectionCommands::isAcceptableTitle(operands.constLast())) {
        return text("Failure.Ctl.CollectionTitle");
    }
    if (line.isSet(QStringLiteral("all")) && line.isSet(QStringLiteral("any"))) {
        return text("Failure.Ctl.AllOrAny");
    }
    return line.isSet(QStringLiteral("rules")) ? QString() : text("Failure.Ctl.NoRules");
}

/// Rules may say nothing, as those of the editor may; who writes them by hand wants to know.
void nameIdleRules(const Session& session, const QVariantList& rules)
{
    for (qsizetype i = 0; i < rules.size(); ++i) {
        if (!organisation::smartRuleTerm(rules[i].toMap())) {
            session.complain(text("Hint.Ctl.Rules.Idle", QString::number(i + 1)));
        }
    }
}

} // namespace

int smart(Session& session, const QCommandLineParser& line)
{
    if (const QString fault = usageFault(line); !fault.isEmpty()) {
        return session.wrongUsage(fault, "smart");
    }
    const auto read = smartRulesFromJson(line.value(QStringLiteral("rules")));
    if (!read) {
        return session.wrongUsage(read.reason(), "smart");
    }
    if (const auto opened = session.open(); !opened) {
        return session.fail(opened.reason());
    }
    organisation::NewCollection item;
    item.type = store::kTypeSmartCollection;
    item.title = line.positionalArguments().constLast();
    item.filterCondition = line.isSet(QStringLiteral("all"));
    item.filters = read.value();
    if (const auto resolved = resolveTags(session.context(), item.filters); !resolved) {
        return session.fail(resolved.reason());
    }
    nameIdleRules(session, item.filters);
    const auto made = organisation::CollectionCommands(session.context()).addItem(item, nullptr);
    if (!made) {
        return session.fail(made.reason());
    }
    const auto record = session.context().first<store::Collections>(
        store::Predicate::compare(QLatin1String("collectionID"), store::Comparison::Equal, made.value()));
    if (session.json() && record) {
        JsonArrayWriter(session.out()).write(recordJson(*record));
    } else if (!session.json()) {
        session.out() << made.value() << Qt::endl;
    }
    return kAllWell;
}

} // namespace mosaro::ctl
