#include "ctl/ItemTargets.h"

#include "base/Text.h"
#include "store/Media.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace mosaro::ctl {

ItemTargets itemTargets(Session& session, const QStringList& operands)
{
    ItemTargets targets;
    for (const QString& operand : operands) {
        const QString id = operand.toUpper();
        const auto found = session.context().fetchIds(
            store::Media::info(),
            {store::Predicate::compare(QLatin1String("mediaID"), store::Comparison::Equal, id), {}, 1});
        if (found && !found.value().empty()) {
            targets.rows.push_back(found.value().front());
            targets.ids.append(id);
        } else {
            targets.unknown.append(id);
        }
    }
    return targets;
}

int reportChange(const Session& session, const ItemTargets& targets, const QString& failure)
{
    if (!failure.isEmpty()) {
        return session.fail(failure);
    }
    QJsonArray failed;
    for (const QString& id : targets.unknown) {
        const QString reason = base::text("Failure.Ctl.NoItem", id);
        session.complain(reason);
        failed.append(QJsonObject{{QStringLiteral("mediaID"), id}, {QStringLiteral("reason"), reason}});
    }
    if (session.json()) {
        const QJsonObject report{{QStringLiteral("changed"), QJsonArray::fromStringList(targets.ids)},
                                 {QStringLiteral("failed"), failed}};
        session.out() << QJsonDocument(report).toJson(QJsonDocument::Compact) << Qt::endl;
    } else {
        session.out() << base::text("Hint.Ctl.Changed", QString::number(targets.ids.size())) << Qt::endl;
    }
    if (targets.unknown.isEmpty()) {
        return kAllWell;
    }
    return targets.ids.isEmpty() ? kFailed : kSomeItemsFailed;
}

} // namespace mosaro::ctl
