#include "organisation/CollectionCommands.h"

#include "base/Text.h"
#include "store/Collections.h"
#include "store/RecordReference.h"

#include <QDateTime>
#include <QUuid>

namespace mosaro::organisation {

namespace {

constexpr qint64 kSortByImportDate = 7;
constexpr double kDefaultZoom = 0.4;

} // namespace

bool isCommandPossible(SidebarCommand command, const NodeList& selected)
{
    if (selected.empty()) {
        return command == SidebarCommand::NewCollection || command == SidebarCommand::NewFolder;
    }
    if (selected.size() > 1 || !selected.front()->isUserNode()) {
        return false;
    }
    return selected.front()->type != store::kTypeSmartCollection || command != SidebarCommand::Import;
}

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

std::optional<NewItemKind> newItemKind(int tag)
{
    switch (SidebarCommand(tag)) {
    case SidebarCommand::NewCollection:
        return NewItemKind{store::kTypeCollection, base::text("Basic.Untitled.Collection")};
    case SidebarCommand::NewFolder:
        return NewItemKind{store::kTypeFolder, base::text("Basic.Untitled.Folder")};
    default:
        return std::nullopt;
    }
}

base::Result<QString> CollectionCommands::addItem(const NewCollection& item, const CollectionNode* parent)
{
    const auto parentRecord =
        parent ? store::unarchivedReference<store::Collections>(m_context, parent->object) : nullptr;
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
    if (const auto saved = m_context.save(); !saved) {
        m_context.rollback();
        return saved.failure();
    }
    return record->collectionID();
}

base::Result<void> CollectionCommands::rename(const CollectionNode& node, const QString& title)
{
    const auto record = store::unarchivedReference<store::Collections>(m_context, node.object);
    if (!record) {
        return base::Failure{base::text("Failure.Collection.Gone", node.title)};
    }
    record->setTitle(title);
    record->setDateModified(QDateTime::currentDateTimeUtc());
    const auto saved = m_context.save();
    if (!saved) {
        m_context.rollback();
    }
    return saved;
}

bool CollectionCommands::isAcceptableTitle(const QString& title)
{
    return !title.isEmpty() && title != QLatin1String(" ");
}

} // namespace mosaro::organisation
