#include "organisation/SelectionPipeline.h"

#include "organisation/CollectionTree.h"
#include "organisation/RecentPredicate.h"
#include "organisation/SmartRuleQuery.h"
#include "store/Media.h"
#include "store/RecordReference.h"

namespace mosaro::organisation {

using store::Comparison;
using store::Predicate;

namespace {

constexpr int kFirstKind = 4;
constexpr int kLastKind = 14;

Predicate itemsOf(const QVariantList& collectionRows)
{
    const QLatin1String owner("collections");
    if (collectionRows.size() == 1) {
        return Predicate::compare(owner, Comparison::Equal, collectionRows.front());
    }
    return Predicate::compare(owner, Comparison::In, collectionRows);
}

} // namespace

NodeList selectionArray(const NodeList& selected)
{
    NodeList list;
    for (const CollectionNode* node : selected) {
        if (std::find(list.begin(), list.end(), node) == list.end()) {
            list.push_back(node);
        }
        if (node->type == store::kTypeFolder) {
            findChildrenInFolderItem(node->nodes, list);
        }
    }
    return list;
}

store::MediaSet SelectionPipeline::selectedMedia(const NodeList& selected, const QDateTime& now) const
{
    std::vector<Predicate> anyOf;
    std::vector<Predicate> smartQueries;
    QVariantList collectionRows;
    for (const CollectionNode* node : selectionArray(selected)) {
        if (node->type == store::kTypeCollection) {
            const auto row = store::referencedRow(m_context, store::Collections::info(), node->object);
            if (row != store::kUnsavedRow) {
                collectionRows.append(row);
            }
        } else if (node->type == store::kTypeSmartCollection) {
            if (auto query = smartPredicate(*node)) {
                smartQueries.push_back(std::move(*query));
            }
        } else if (auto part = systemPredicate(node->type, now)) {
            anyOf.push_back(std::move(*part));
        }
    }
    if (!smartQueries.empty()) {
        anyOf.push_back(Predicate::anyOf(std::move(smartQueries)));
    }
    if (!collectionRows.isEmpty()) {
        anyOf.push_back(itemsOf(collectionRows));
    }
    return anyOf.empty() ? store::MediaSet() : store::mediaSet(m_context, anyOf);
}

std::optional<Predicate> SelectionPipeline::systemPredicate(int type, const QDateTime& now) const
{
    if (type >= store::kTypeCollection) {
        return std::nullopt;
    }
    if (type == kTypeRecent) {
        return recentPredicate(m_defaults, now);
    }
    if (type >= kFirstKind && type <= kLastKind) {
        return Predicate::compare(QLatin1String("mediaKind"), Comparison::Equal, type);
    }
    return Predicate::all();
}

std::optional<Predicate> SelectionPipeline::smartPredicate(const CollectionNode& node) const
{
    const auto record = store::unarchivedReference<store::Collections>(m_context, node.object);
    return record ? smartQueryOf(*record) : std::nullopt;
}

} // namespace mosaro::organisation
