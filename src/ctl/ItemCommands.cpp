// list, show and search: the items.
#include "base/Text.h"
#include "ctl/ColorSelection.h"
#include "ctl/Command.h"
#include "ctl/ItemSelection.h"
#include "ctl/RecordJson.h"
#include "import/MRBrowserItem.h"
#include "organisation/MediaSearch.h"
#include "organisation/RecentPredicate.h"
#include "store/MediaSet.h"

#include <QHash>
#include <optional>
#include <span>

namespace mosaro::ctl {

using base::Result;
using base::text;
using store::Comparison;
using store::Predicate;

namespace {

constexpr size_t kBatch = 500;

QString itemLine(const std::shared_ptr<store::Media>& media, const QString& masterDirPath)
{
    const importing::MRBrowserItem item(media, masterDirPath);
    return QStringList{item.mediaID(), item.imageSize(), item.mediaKindTypeAsString(),
                       item.fileSizeAsString(), oneLine(item.title())}
        .join(u'\t');
}

/// Prints items in the given order, a batch at a time, so that a large library does not fill the memory.
int printItems(Session& session, const std::vector<store::RowId>& ids)
{
    const QString masters = session.library().masterDirPath();
    std::optional<JsonArrayWriter> array;
    if (session.json()) {
        array.emplace(session.out());
    }
    for (size_t begin = 0; begin < ids.size(); begin += kBatch) {
        const auto batch = std::span(ids).subspan(begin, std::min(kBatch, ids.size() - begin));
        for (const auto& media : session.context().objects<store::Media>(batch)) {
            if (array) {
                array->write(mediaJson(media, masters));
            } else {
                session.out() << itemLine(media, masters) << '\n';
            }
        }
    }
    array.reset();
    session.out().flush();
    return kAllWell;
}

Result<Predicate> listPredicate(Session& session, const QCommandLineParser& line)
{
    if (line.isSet(QStringLiteral("collection"))) {
        return inCollection(session.context(), line.value(QStringLiteral("collection")));
    }
    if (line.isSet(QStringLiteral("smart"))) {
        return inSmartCollection(session.context(), line.value(QStringLiteral("smart")));
    }
    if (line.isSet(QStringLiteral("tag"))) {
        return withTag(session.context(), line.value(QStringLiteral("tag")));
    }
    if (line.isSet(QStringLiteral("color"))) {
        return withColor(session.library(), line.value(QStringLiteral("color")));
    }
    if (line.isSet(QStringLiteral("kind"))) {
        const int kind = *kindFromText(line.value(QStringLiteral("kind")));
        return Predicate::compare(QLatin1String("mediaKind"), Comparison::Equal, kind);
    }
    if (line.isSet(QStringLiteral("recent"))) {
        return organisation::recentPredicate(session.environment().defaults, QDateTime::currentDateTime());
    }
    return Predicate::all();
}

/// What is wrong with the options of "list"; empty for nothing.
QString listUsageFault(const QCommandLineParser& line)
{
    int selections = 0;
    for (const char* name : {"collection", "smart", "tag", "color", "kind", "recent"}) {
        selections += line.isSet(QLatin1String(name)) ? 1 : 0;
    }
    if (selections > 1) {
        return text("Failure.Ctl.OneSelection");
    }
    if (line.isSet(QStringLiteral("kind")) && !kindFromText(line.value(QStringLiteral("kind")))) {
        return text("Failure.Ctl.Kind", kindsInWords());
    }
    if (line.isSet(QStringLiteral("sort")) && !sortKeyFromText(line.value(QStringLiteral("sort")))) {
        return text("Failure.Ctl.SortKey", sortKeysInWords());
    }
    return {};
}

/// What a search looks at; nothing for an unknown name.
std::optional<int> searchTarget(const QString& name)
{
    static const QHash<QString, int> kTargets{{QStringLiteral("title"), organisation::kSearchTitle},
                                              {QStringLiteral("copyright"), organisation::kSearchCopyright},
                                              {QStringLiteral("notes"), organisation::kSearchNote},
                                              {QStringLiteral("url"), organisation::kSearchURL}};
    const auto found = kTargets.constFind(name);
    return found == kTargets.constEnd() ? std::nullopt : std::optional(*found);
}

} // namespace

int list(Session& session, const QCommandLineParser& line)
{
    if (const QString fault = listUsageFault(line); !fault.isEmpty()) {
        return session.wrongUsage(fault, "list");
    }
    if (const auto opened = session.open(); !opened) {
        return session.fail(opened.reason());
    }
    const auto predicate = listPredicate(session, line);
    if (!predicate) {
        return session.fail(predicate.reason());
    }
    const auto ids = session.context().fetchIds(store::Media::info(), {predicate.value(), {}, -1});
    if (!ids) {
        return session.fail(ids.reason());
    }
    const int sortKey = line.isSet(QStringLiteral("sort"))
                            ? *sortKeyFromText(line.value(QStringLiteral("sort")))
                            : static_cast<int>(store::SortKey::DateImported);
    const auto ordered =
        store::orderMedia(session.context(), ids.value(), sortKey, !line.isSet(QStringLiteral("descending")));
    return ordered ? printItems(session, ordered.value()) : session.fail(ordered.reason());
}

int show(Session& session, const QCommandLineParser& line)
{
    if (const auto opened = session.open(); !opened) {
        return session.fail(opened.reason());
    }
    const QString mediaID = line.positionalArguments().constFirst().toUpper();
    const auto media = session.context().first<store::Media>(
        Predicate::compare(QLatin1String("mediaID"), Comparison::Equal, mediaID));
    if (!media) {
        return session.fail(text("Failure.Ctl.NoItem", mediaID));
    }
    const QJsonObject object = mediaJson(media, session.library().masterDirPath());
    if (session.json()) {
        JsonArrayWriter(session.out()).write(object);
        return kAllWell;
    }
    printFields(session.out(), object);
    return kAllWell;
}

int search(Session& session, const QCommandLineParser& line)
{
    const QString field =
        line.isSet(QStringLiteral("in")) ? line.value(QStringLiteral("in")) : QStringLiteral("title");
    const std::optional<int> target = searchTarget(field);
    const QString keyword = line.positionalArguments().constFirst();
    if (!target || keyword.isEmpty()) {
        return session.wrongUsage(
            keyword.isEmpty() ? text("Failure.Ctl.NoKeyword") : text("Failure.Ctl.SearchField"), "search");
    }
    if (const auto opened = session.open(); !opened) {
        return session.fail(opened.reason());
    }
    auto predicate = organisation::searchPredicate(*target, keyword);
    if (line.isSet(QStringLiteral("collection"))) {
        const auto scope = inCollection(session.context(), line.value(QStringLiteral("collection")));
        if (!scope) {
            return session.fail(scope.reason());
        }
        predicate = Predicate::allOf({scope.value(), predicate});
    }
    const auto ids = session.context().fetchIds(
        store::Media::info(), {predicate, {{QLatin1String("mediaDateImported"), false, false}}, -1});
    return ids ? printItems(session, ids.value()) : session.fail(ids.reason());
}

} // namespace mosaro::ctl
