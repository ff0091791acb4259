// collections, tags and colors: what items are ordered by.
#include "ctl/Command.h"
#include "ctl/RecordJson.h"
#include "organisation/MRColorTagItem.h"
#include "store/Collections.h"
#include "store/Colors.h"
#include "store/Tags.h"

namespace mosaro::ctl {

namespace {

/// Prints all records of an entity in an order; `lineOf` gives the line without "--json".
template <class T, class LineOf>
int printAll(Session& session, std::vector<store::SortOrder> order, LineOf lineOf)
{
    if (const auto opened = session.open(); !opened) {
        return session.fail(opened.reason());
    }
    const auto records = session.context().fetch<T>({store::Predicate::all(), std::move(order), -1});
    if (!records) {
        return session.fail(records.reason());
    }
    if (session.json()) {
        JsonArrayWriter array(session.out());
        for (const auto& record : records.value()) {
            array.write(recordJson(*record));
        }
        return kAllWell;
    }
    for (const auto& record : records.value()) {
        session.out() << lineOf(*record) << '\n';
    }
    session.out().flush();
    return kAllWell;
}

} // namespace

int collections(Session& session, const QCommandLineParser&)
{
    return printAll<store::Collections>(
        session, {{QLatin1String("title"), true, true}}, [](const store::Collections& record) {
            return QStringLiteral("%1\t%2\t%3\t%4")
                .arg(record.collectionID(), QString::number(record.type()),
                     QString::number(record.mediaCount()), oneLine(record.title()));
        });
}

int tags(Session& session, const QCommandLineParser&)
{
    return printAll<store::Tags>(
        session, {{QLatin1String("title"), true, true}},
        [](const store::Tags& record) { return record.tagID() + u'\t' + oneLine(record.title()); });
}

int colors(Session& session, const QCommandLineParser&)
{
    return printAll<store::Colors>(
        session, {{QLatin1String("colorType"), true, false}, {QLatin1String("colorID"), true, false}},
        [&session](const store::Colors& record) {
            const organisation::MRColorTagItem item(
                session.library(),
                {record.rowId(), record.colorID(), record.colorType(), record.isLike(), 0});
            return record.colorID() + u'\t' + QString::number(record.colorType()) + u'\t' + item.colorAsHex();
        });
}

} // namespace mosaro::ctl
