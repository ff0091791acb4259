// move, rate and label: changes of items.
#include "base/Text.h"
#include "browser/BrowserCommands.h"
#include "ctl/CollectionLookup.h"
#include "ctl/Command.h"
#include "ctl/ItemTargets.h"
#include "organisation/LabelNames.h"
#include "organisation/MediaMove.h"
#include "store/RecordReference.h"

#include <QEventLoop>
#include <algorithm>

namespace mosaro::ctl {

using base::text;

namespace {

constexpr int kMostStars = 5;

/// Changes the items that the operands after the first name.
template <class Change>
int changeItems(Session& session, const QCommandLineParser& line, Change change)
{
    if (const auto opened = session.open(); !opened) {
        return session.fail(opened.reason());
    }
    const ItemTargets targets = itemTargets(session, line.positionalArguments().mid(1));
    const bool isSaved =
        targets.rows.empty() || change(browser::BrowserCommands(session.library()), targets.rows);
    return reportChange(session, targets, isSaved ? QString() : text("Failure.Ctl.NotSaved"));
}

/// 0 to 7 from a number or a name; nothing for others.
std::optional<int> labelFromText(const QString& label, const QStringList& names)
{
    bool isNumber = false;
    const int number = label.toInt(&isNumber);
    if (isNumber) {
        return number >= 0 && number < names.size() ? std::optional(number) : std::nullopt;
    }
    const auto named = std::find_if(names.begin(), names.end(), [&label](const QString& name) {
        return name.compare(label, Qt::CaseInsensitive) == 0;
    });
    return named == names.end() ? std::nullopt : std::optional(int(named - names.begin()));
}

} // namespace

int rate(Session& session, const QCommandLineParser& line)
{
    bool isNumber = false;
    const int rating = line.positionalArguments().constFirst().toInt(&isNumber);
    if (!isNumber || rating < 0 || rating > kMostStars) {
        return session.wrongUsage(text("Failure.Ctl.Rating"), "rate");
    }
    return changeItems(session, line, [rating](browser::BrowserCommands commands, const auto& rows) {
        return commands.ratingImages(rows, rating);
    });
}

int label(Session& session, const QCommandLineParser& line)
{
    const QStringList names = organisation::labelNames(session.environment().defaults);
    const auto label = labelFromText(line.positionalArguments().constFirst(), names);
    if (!label) {
        return session.wrongUsage(text("Failure.Ctl.Label", names.join(QStringLiteral(", "))), "label");
    }
    return changeItems(session, line, [label](browser::BrowserCommands commands, const auto& rows) {
        return commands.labelImages(rows, *label);
    });
}

int move(Session& session, const QCommandLineParser& line)
{
    if (!line.isSet(QStringLiteral("to"))) {
        return session.wrongUsage(text("Failure.Ctl.NoTarget"), "move");
    }
    if (const auto opened = session.open(); !opened) {
        return session.fail(opened.reason());
    }
    const auto tree = collectionTree(session.context());
    const auto target = tree ? collectionNode(*tree.value(), line.value(QStringLiteral("to")))
                             : base::Result<const organisation::CollectionNode*>(tree.failure());
    if (!target) {
        return session.fail(target.reason());
    }
    const auto record =
        store::unarchivedReference<store::Collections>(session.context(), target.value()->object);
    if (!record || record->type() != store::kTypeCollection) {
        return session.fail(text("Failure.Ctl.NoOwner", target.value()->title));
    }
    const ItemTargets targets = itemTargets(session, line.positionalArguments());
    organisation::SlicedRun run;
    QEventLoop loop;
    QString failure;
    organisation::startMediaMove(run, session.context(), targets.ids, record, {},
                                 [&](const organisation::RecordRun::End& end) {
                                     failure = end.failure;
                                     loop.quit();
                                 });
    loop.exec();
    return reportChange(session, targets, failure);
}

} // namespace mosaro::ctl
