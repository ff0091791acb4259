#include "organisation/CollectionCommands.h"

#include "base/Text.h"
#include "organisation/CollectionMenuRules.h"
#include "organisation/SmartRules.h"
#include "store/RecordReference.h"

#include <QDateTime>
#include <QUuid>

namespace mosaro::organisation {

namespace {

constexpr qint64 kSortByImportDate = 7;
constexpr double kDefaultZoom = 0.4;

} // namespace

std::optional<CollectionPlace> placeForNewItem(const NodeList& selected)
{
    if (selected.empty()) {
        return CollectionPlace{};
    }
    const CollectionNode* first = selected.front();
    if (first->type == store::kTypeFolder) {
        return CollectionPlace{first};
    }
    if (first->type == store::kTypeCollection || first->type == store::kTypeSmartCollection) {
        const bool inFolder = first->parent && first->parent->type == store::kTypeFolder;
        return CollectionPlace{inFolder ? first->parent : nullptr};
    }
    return std::nullopt;
}

const CollectionNode* containerForSmartName(const NodeList& selected, const CollectionTree& tree)
{
    const CollectionNode* beside = selected.empty() ? nullptr : selected.front();
    return beside && beside->parent ? beside->parent : tree.userGroup();
}

std::optional<NewItemKind> newItemKind(int tag)
{
    switch (SidebarCommand(tag)) {
    case SidebarCommand::NewCollection:
        return NewItemKind{store::kTypeCollection, base::text("Basic.Untitled.Collection")};
    case SidebarCommand::NewSmartCollection:
        return NewItemKind{store::kTypeSmartCollection, base::text("Basic.Untitled.Smart.Collection")};
    case SidebarCommand::NewFolder:
        return NewItemKind{store::kTypeFolder, base::text("Basic.Untitled.Folder")};
    default:
        return std::nullopt;
    }
}

NewCollection newSmartCollection(const QVariantMap& result)
{
    return {store::kTypeSmartCollection, result.value(SMART_COLLECTION_TITLE).toString(),
            result.value(SMART_COLLECTION_MATCH_CONDITION).toInt() != 0,
            result.value(SMART_COLLECTION_RULES).toList()};
}

base::Result<QString> CollectionCommands::addItem(const NewCollection& item, const CollectionNode* parent)
{
    const auto parentRecord = parent ? recordOf(*parent) : nullptr;
    const QDateTime now = QDateTime::currentDateTimeUtc();

    const auto record = m_context.insert<store::Collections>();
    record->setCollectionID(QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper());
    record->setCollectionPID(parentRecord ? parentRecord->collectionID() : QStringLiteral(""));
    record->setTitle(item.title);
    record->setType(item.type);
    record->setAutoImport(false);
    record->setLabel(0);
    record->setDateCreated(now);
    record->setDateModified(now);
    record->setIsAscending(false);
    record->setSortKey(kSortByImportDate);
    record->setZoomValue(kDefaultZoom);
    record->setFilterCondition(item.filterCondition);
    if (!item.filters.isEmpty()) {
        record->setFilters(item.filters);
    }
    if (const auto saved = saveOrRollback(); !saved) {
        return saved.failure();
    }
    return record->collectionID();
}

base::Result<void> CollectionCommands::rename(const CollectionNode& node, const QString& title)
{
    const auto record = recordOf(node);
    if (!record) {
        return base::Failure{base::text("Failure.Collection.Gone", node.title)};
    }
    record->setTitle(title);
    record->setDateModified(QDateTime::currentDateTimeUtc());
    return saveOrRollback();
}

bool CollectionCommands::isAcceptableTitle(const QString& title)
{
    return !title.trimmed().isEmpty();
}

base::Result<void> CollectionCommands::editSmart(const CollectionNode& node, const QVariantMap& result)
{
    const auto record = recordOf(node);
    if (!record) {
        return base::Failure{base::text("Failure.Collection.Gone", node.title)};
    }
    const NewCollection edited = newSmartCollection(result);
    record->setDateModified(QDateTime::currentDateTimeUtc());
    record->setTitle(edited.title);
    record->setFilterCondition(edited.filterCondition);
    record->setFilters(edited.filters);
    return saveOrRollback();
}

base::Result<QStringList> CollectionCommands::reparent(const NodeList& nodes, const QString& parentID)
{
    const QDateTime now = QDateTime::currentDateTimeUtc();
    QStringList ids;
    for (const CollectionNode* node : nodes) {
        if (const auto record = recordOf(*node)) {
            record->setCollectionPID(parentID);
            record->setDateModified(now);
            ids.append(node->id);
        }
    }
    if (const auto saved = saveOrRollback(); !saved) {
        return saved.failure();
    }
    return ids;
}

QStringList CollectionCommands::setLabel(const NodeList& nodes, int label)
{
    QStringList ids;
    for (const CollectionNode* node : nodes) {
        if (const auto record = recordOf(*node)) {
            record->setLabel(label);
            record->setDateModified(QDateTime::currentDateTimeUtc());
            if (saveOrRollback()) {
                ids.append(node->id);
            }
        }
    }
    return ids;
}

std::shared_ptr<store::Collections> CollectionCommands::recordOf(const CollectionNode& node)
{
    return store::unarchivedReference<store::Collections>(m_context, node.object);
}

base::Result<void> CollectionCommands::saveOrRollback()
{
    const auto saved = m_context.save();
    if (!saved) {
        m_context.rollback();
    }
    return saved;
}

} // namespace mosaro::organisation
