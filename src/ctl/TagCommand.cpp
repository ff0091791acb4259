// tag: puts a tag on items or takes it off.
#include "base/Text.h"
#include "ctl/Command.h"
#include "ctl/ItemSelection.h"
#include "ctl/ItemTargets.h"
#include "organisation/TagCommands.h"
#include "organisation/TagLinker.h"
#include "store/Media.h"
#include "store/TagLinks.h"

namespace mosaro::ctl {

using base::text;
using organisation::TagDirection;

namespace {

const QString kAdd = QStringLiteral("add");
const QString kCollection = QStringLiteral("collection");

/// What is wrong with the call; empty for nothing.
QString usageFault(const QCommandLineParser& line)
{
    const QStringList operands = line.positionalArguments();
    const bool namesItems = operands.size() > 2;
    if ((operands[0] != kAdd && operands[0] != QLatin1String("remove")) ||
        namesItems == line.isSet(kCollection)) {
        return text("Failure.Ctl.Operands",
                    QStringLiteral("add|remove TITLE and MEDIAID... or --collection"));
    }
    return organisation::TagCommands::isAcceptableTitle(operands[1]) ? QString()
                                                                     : text("Failure.Ctl.EmptyTitle");
}

/// The tag of a title, whatever its case; made when it is to be put on items and there is none.
base::Result<store::RowId> tagOfTitle(Session& session, const QString& title, TagDirection direction)
{
    organisation::TagList list;
    if (const auto read = list.reload(session.context()); !read) {
        return read.failure();
    }
    if (const int row = list.indexOfTitle(title); row >= 0) {
        return list.at(row).object;
    }
    if (direction == TagDirection::Remove) {
        return base::Failure{text("Failure.Ctl.NoTag", title)};
    }
    return organisation::TagCommands(session.context(), session.library().state()).addTag(title);
}

base::Result<ItemTargets> targetsOf(Session& session, const QCommandLineParser& line)
{
    if (!line.isSet(kCollection)) {
        return itemTargets(session, line.positionalArguments().mid(2));
    }
    const auto isWanted = inCollection(session.context(), line.value(kCollection));
    if (!isWanted) {
        return isWanted.failure();
    }
    auto rows = session.context().fetchIds(store::Media::info(), {isWanted.value(), {}, -1});
    if (!rows) {
        return rows.failure();
    }
    ItemTargets targets;
    targets.rows = std::move(rows).value();
    if (const auto ids = store::mediaIDs(session.context(), targets.rows)) {
        for (const store::RowId row : targets.rows) {
            targets.ids.append(ids.value().value(row));
        }
    }
    return targets;
}

} // namespace

int tag(Session& session, const QCommandLineParser& line)
{
    if (const QString fault = usageFault(line); !fault.isEmpty()) {
        return session.wrongUsage(fault, "tag");
    }
    if (const auto opened = session.open(); !opened) {
        return session.fail(opened.reason());
    }
    const QStringList operands = line.positionalArguments();
    const auto direction = operands[0] == kAdd ? TagDirection::Add : TagDirection::Remove;
    const auto targets = targetsOf(session, line);
    if (!targets) {
        return session.fail(targets.reason());
    }
    const auto tag = tagOfTitle(session, operands[1], direction);
    if (!tag) {
        return session.fail(tag.reason());
    }
    organisation::TagLinker linker(session.context(), tag.value(), targets.value().rows, direction);
    for (qsizetype position = 0; position < linker.count(); ++position) {
        linker.step(position);
    }
    linker.saveRest();
    return reportChange(session, targets.value(), linker.failed() > 0 ? linker.reason() : QString());
}

} // namespace mosaro::ctl
