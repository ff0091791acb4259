#include "organisation/CollectionTree.h"

#include "base/FinderStyleCompare.h"
#include "base/Text.h"
#include "organisation/TreeWalk.h"
#include "store/Collections.h"
#include "store/RecordReference.h"

#include <QHash>
#include <algorithm>
#include <array>
#include <unordered_map>

namespace mosaro::organisation {

namespace {

struct SystemRow {
    int type;
    const char* titleKey;
};

constexpr std::array kRootRows{SystemRow{kTypeAll, "Lib.All"}, SystemRow{kTypeRecent, "Lib.Recent"}};

// Kind 13 has no row, on purpose: nothing makes such items.
constexpr std::array kKindRows{
    SystemRow{4, "Lib.Screen"},     SystemRow{5, "Lib.Phone"},         SystemRow{6, "Lib.Tablet"},
    SystemRow{7, "Lib.Web"},        SystemRow{8, "Lib.Icon"},          SystemRow{9, "Lib.Button"},
    SystemRow{10, "Lib.Interface"}, SystemRow{11, "Lib.Animated.GIF"}, SystemRow{12, "Lib.Wallpaper"},
    SystemRow{14, "Lib.PDF"},
};

std::unique_ptr<CollectionNode> makeGroup(const char* id, const QString& title)
{
    auto group = std::make_unique<CollectionNode>();
    group->id = QLatin1String(id);
    group->title = title.toUpper();
    group->isGroup = true;
    group->hasNodes = true;
    return group;
}

void appendGroup(CollectionTree::Nodes& library, std::unique_ptr<CollectionNode> group)
{
    group->row = int(library.size());
    library.push_back(std::move(group));
}

void adopt(CollectionNode& parent, std::unique_ptr<CollectionNode> child)
{
    child->parent = &parent;
    child->row = int(parent.nodes.size());
    parent.nodes.push_back(std::move(child));
}

template <std::size_t N>
void adoptRows(CollectionNode& group, const std::array<SystemRow, N>& rows)
{
    for (const SystemRow& row : rows) {
        auto node = std::make_unique<CollectionNode>();
        node->id = QString::number(row.type);
        node->title = base::text(row.titleKey);
        node->type = row.type;
        adopt(group, std::move(node));
    }
}

std::unique_ptr<CollectionNode> makeUserNode(const store::Collections& record)
{
    auto node = std::make_unique<CollectionNode>();
    node->id = record.collectionID();
    node->title = record.title();
    node->type = int(record.type());
    node->hasNodes = true;
    node->object = store::archivedReference(record);
    node->pid = record.collectionPID();
    node->label = int(record.label());
    return node;
}

/// Moves the children of `node` out of `waiting` and below it, in order. An entry is taken once, so that
/// records that name each other as parents cannot make a circle.
void adoptChildren(CollectionNode& node, std::unordered_map<QString, CollectionTree::Nodes>& waiting)
{
    auto found = waiting.extract(node.id);
    if (found.empty()) {
        return;
    }
    base::sortedArray(found.mapped(), [](const auto& child) -> const QString& { return child->title; });
    for (auto& child : found.mapped()) {
        adopt(node, std::move(child));
        adoptChildren(*node.nodes.back(), waiting);
    }
}

} // namespace

base::Result<void> CollectionTree::makeLibrary(store::StoreContext& context)
{
    m_library.clear();
    makeRootItems();
    makeCollections();
    return makeUserCollections(context);
}

void CollectionTree::makeRootItems()
{
    appendGroup(m_library, makeGroup(kLibraryGroupID, base::text("Lib.Library")));
    adoptRows(*m_library.back(), kRootRows);
}

void CollectionTree::makeCollections()
{
    appendGroup(m_library, makeGroup(kCollectionsGroupID, base::text("Lib.Collections")));
    adoptRows(*m_library.back(), kKindRows);
}

base::Result<void> CollectionTree::makeUserCollections(store::StoreContext& context)
{
    const auto records = context.fetch<store::Collections>({});
    if (!records) {
        return records.failure();
    }
    Nodes roots;
    std::unordered_map<QString, Nodes> waiting;
    for (const auto& record : records.value()) {
        auto node = makeUserNode(*record);
        (node->pid.isEmpty() ? roots : waiting[node->pid]).push_back(std::move(node));
    }
    base::sortedArray(roots, [](const auto& node) -> const QString& { return node->title; });

    auto group = makeGroup(kYourCollectionsGroupID, base::text("Lib.Your.Collections"));
    for (auto& root : roots) {
        adopt(*group, std::move(root));
        adoptChildren(*group->nodes.back(), waiting);
    }
    if (m_library.size() >= 3) {
        m_library.pop_back();
    }
    appendGroup(m_library, std::move(group));
    return {};
}

const CollectionNode* CollectionTree::userGroup() const
{
    return m_library.size() >= 3 ? m_library.back().get() : nullptr;
}

const CollectionNode* CollectionTree::node(const QString& id) const
{
    const NodeList all = allNodes(m_library);
    const auto found =
        std::find_if(all.begin(), all.end(), [&id](const auto* node) { return node->id == id; });
    return found == all.end() ? nullptr : *found;
}

QString sidebarImageName(int type)
{
    static const QHash<int, QString> kNames{
        {1, QStringLiteral("side_all_s")},
        {2, QStringLiteral("side_recent_s")},
        {4, QStringLiteral("side_screen_s")},
        {5, QStringLiteral("side_phone_s")},
        {6, QStringLiteral("side_tablet_s")},
        {7, QStringLiteral("side_web_s")},
        {8, QStringLiteral("side_icon_s")},
        {9, QStringLiteral("side_button_s")},
        {10, QStringLiteral("side_interface_s")},
        {11, QStringLiteral("side_animated_gif_s")},
        {12, QStringLiteral("side_wallpaper_s")},
        {13, QStringLiteral("side_movie_s")},
        {14, QStringLiteral("side_pdf_s")},
        {store::kTypeCollection, QStringLiteral("side_collection_s")},
        {store::kTypeSmartCollection, QStringLiteral("side_smart_collection_s")},
        {store::kTypeFolder, QStringLiteral("side_folder_s")},
    };
    return kNames.value(type);
}

} // namespace mosaro::organisation
