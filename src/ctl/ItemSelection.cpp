#include "ctl/ItemSelection.h"

#include "base/Text.h"
#include "import/MediaClassification.h"
#include "organisation/SmartRuleQuery.h"
#include "store/MediaTagList.h"
#include "store/Tags.h"

namespace mosaro::ctl {

using base::Failure;
using base::Result;
using base::text;
using store::Comparison;
using store::Predicate;

namespace {

/// By number, as stored.
const QStringList& sortKeyNames()
{
    static const QStringList kNames{
        QStringLiteral("title"),    QStringLiteral("size"),     QStringLiteral("rating"),
        QStringLiteral("width"),    QStringLiteral("height"),   QStringLiteral("created"),
        QStringLiteral("modified"), QStringLiteral("imported"), QStringLiteral("opened")};
    return kNames;
}

/// The same by the names of the browser's fields, for who knows those.
const QStringList& sortFieldNames()
{
    static const QStringList kNames{
        QStringLiteral("title"),        QStringLiteral("fileSize"),     QStringLiteral("mediaRating"),
        QStringLiteral("width"),        QStringLiteral("height"),       QStringLiteral("dateCreated"),
        QStringLiteral("dateModified"), QStringLiteral("dateImported"), QStringLiteral("dateLastOpened")};
    return kNames;
}

} // namespace

Result<std::vector<std::shared_ptr<store::Collections>>> collectionsOfTitle(store::StoreContext& context,
                                                                            const QString& title, int type)
{
    const auto isWanted =
        Predicate::allOf({Predicate::compare(QLatin1String("title"), Comparison::Equal, title),
                          Predicate::compare(QLatin1String("type"), Comparison::Equal, type)});
    auto found = context.fetch<store::Collections>({isWanted, {}, -1});
    if (found && found.value().empty()) {
        return Failure{text("Failure.Ctl.NoCollection", title)};
    }
    return found;
}

Result<Predicate> inCollection(store::StoreContext& context, const QString& title)
{
    const auto found = collectionsOfTitle(context, title);
    if (!found) {
        return found.failure();
    }
    QVariantList ids;
    for (const auto& collection : found.value()) {
        ids.append(collection->collectionID());
    }
    return Predicate::compare(QLatin1String("mediaPID"), Comparison::In, ids);
}

Result<Predicate> inSmartCollection(store::StoreContext& context, const QString& title)
{
    const auto found = collectionsOfTitle(context, title, store::kTypeSmartCollection);
    if (!found) {
        return found.failure();
    }
    std::vector<Predicate> queries;
    for (const auto& collection : found.value()) {
        if (auto query = organisation::smartQueryOf(*collection)) {
            queries.push_back(std::move(*query));
        }
    }
    return Predicate::anyOf(std::move(queries));
}

Result<Predicate> withTag(store::StoreContext& context, const QString& title)
{
    const auto isWanted = Predicate::compare(QLatin1String("title"), Comparison::Equal, title);
    const auto tag = context.first<store::Tags>(isWanted);
    if (!tag) {
        return Failure{text("Failure.Ctl.NoTag", title)};
    }
    return Predicate::linkedBy(store::MediaTagList::info(), QLatin1String("media"),
                               Predicate::compare(QLatin1String("tagID"), Comparison::Equal, tag->tagID()));
}

std::optional<int> kindFromText(const QString& text)
{
    bool isNumber = false;
    const int kind = text.toInt(&isNumber);
    const bool isKind = isNumber && !importing::MediaClassification::mediaKindType(kind).isEmpty();
    return isKind ? std::optional(kind) : std::nullopt;
}

QString kindsInWords()
{
    QStringList words;
    const QVariantList kinds = importing::MediaClassification::mediaKindList();
    for (const QVariant& kind : kinds) {
        const QVariantMap row = kind.toMap();
        words.append(row.value(QStringLiteral("tag")).toString() + u' ' +
                     row.value(QStringLiteral("title")).toString());
    }
    return words.join(QStringLiteral(", "));
}

std::optional<int> sortKeyFromText(const QString& text)
{
    const qsizetype number = std::max(sortKeyNames().indexOf(text), sortFieldNames().indexOf(text));
    return number < 0 ? std::nullopt : std::optional(static_cast<int>(number));
}

QString sortKeysInWords()
{
    return sortKeyNames().join(QStringLiteral(", "));
}

} // namespace mosaro::ctl
