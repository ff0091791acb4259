#include "store/StoreContext.h"

#include "base/Text.h"
#include "base/Threads.h"
#include "store/ChangeSet.h"
#include "store/IdentityMap.h"
#include "store/RecordState.h"
#include "store/RecordStorage.h"
#include "store/SaveOperation.h"
#include "store/SqlCompiler.h"
#include "store/StoreFile.h"

#include <sqlite3.h>

namespace mosaro::store {

namespace {

constexpr qint64 kWorthCompacting = qint64(1024) * 1024;

} // namespace

class StoreContext::Private {
public:
    explicit Private(std::unique_ptr<StoreFile> opened) : file(std::move(opened)), storage(*file)
    {
        sqlite3_update_hook(file->database().getHandle(), &noteChange, this);
    }

    static void noteChange(void* self, int operation, const char*, const char* table, sqlite3_int64 row)
    {
        if (operation != SQLITE_DELETE)
            return;
        for (const EntityInfo* entity : allEntities()) {
            if (entity->name == QLatin1String(table))
                static_cast<Private*>(self)->removedRows.push_back({entity, row});
        }
    }

    /// The record of the statement's row, with its attributes.
    std::shared_ptr<Record> recordOfRow(StoreContext& context, SQLite::Statement& row,
                                        const EntityInfo& entity, Maker maker)
    {
        const RowId id = RecordStorage::rowId(row);
        auto record = identity.find(entity, id);
        if (record == nullptr) {
            record = maker(context, id);
            identity.insert(record);
        }
        RecordStorage::readRow(row, *record);
        return record;
    }

    std::unique_ptr<StoreFile> file;
    RecordStorage storage;
    IdentityMap identity;
    ChangeSet changes;
    std::vector<RemovedRow> removedRows; ///< Of the transaction that runs.
    QString storeID;
};

StoreContext::StoreContext(std::unique_ptr<Private> parts) : d(std::move(parts)) {}

StoreContext::~StoreContext()
{
    rollback();
    for (const auto& record : d->identity.takeAll())
        RecordState::detach(*record);
}

base::Result<std::unique_ptr<StoreContext>> StoreContext::open(const QString& path)
{
    Q_ASSERT(base::onMainThread());
    auto file = StoreFile::open(path);
    if (!file)
        return file.failure();
    try {
        std::unique_ptr<StoreContext> context(
            new StoreContext(std::make_unique<Private>(std::move(file).value())));
        context->d->storeID = context->d->file->information(QStringLiteral("storeID"));
        context->compact();
        return context;
    } catch (const SQLite::Exception& error) {
        return storeFailure(error, path);
    }
}

std::shared_ptr<Record> StoreContext::insertRecord(Maker maker)
{
    auto record = maker(*this, kUnsavedRow);
    RecordState::values(*record).resize(record->entity().attributes.size());
    d->changes.noteInserted(record);
    return record;
}

void StoreContext::load(const Record& record)
{
    try {
        if (record.isSaved() && d->storage.load(record, record.rowId()))
            return;
    } catch (const SQLite::Exception& error) {
        qWarning("%s", qUtf8Printable(storeFailure(error, path()).reason));
    }
    RecordState::values(record).resize(record.entity().attributes.size());
}

void StoreContext::noteDirty(const Record& record)
{
    if (record.isSaved())
        d->changes.noteDirty(const_cast<Record&>(record).shared_from_this());
}

StoreContext::Records StoreContext::recordsOf(const EntityInfo& entity, Maker maker,
                                              std::span<const RowId> ids)
{
    Records records;
    records.reserve(ids.size());
    try {
        for (const RowId id : ids) {
            auto record = d->identity.find(entity, id);
            if (record == nullptr) {
                record = maker(*this, id);
                if (id == kUnsavedRow || !d->storage.load(*record, id))
                    continue;
                d->identity.insert(record);
            }
            records.push_back(std::move(record));
        }
    } catch (const SQLite::Exception& error) {
        qWarning("%s", qUtf8Printable(storeFailure(error, path()).reason));
    }
    return records;
}

base::Result<StoreContext::Records> StoreContext::fetchRecords(const EntityInfo& entity, Maker maker,
                                                               const Query& query)
{
    const auto compiled = SqlCompiler::select(entity, RecordStorage::columns(entity), query);
    if (!compiled)
        return compiled.failure();
    try {
        Records records;
        auto rows = d->file->statement(compiled.value().sql);
        compiled.value().bindTo(*rows);
        while (rows->executeStep())
            records.push_back(d->recordOfRow(*this, *rows, entity, maker));
        return records;
    } catch (const SQLite::Exception& error) {
        return storeFailure(error, path());
    }
}

base::Result<std::vector<RowId>> StoreContext::fetchIds(const EntityInfo& entity, const Query& query)
{
    std::vector<RowId> ids;
    const auto walked = forEachRow(
        entity, "id", query, [&ids](SQLite::Statement& row) { ids.push_back(row.getColumn(0).getInt64()); });
    if (!walked)
        return walked.failure();
    return ids;
}

base::Result<void> StoreContext::forEachRow(const EntityInfo& entity, const QByteArray& columns,
                                            const Query& query,
                                            const std::function<void(SQLite::Statement&)>& visit)
{
    const auto compiled = SqlCompiler::select(entity, columns, query);
    if (!compiled)
        return compiled.failure();
    try {
        auto rows = d->file->statement(compiled.value().sql);
        compiled.value().bindTo(*rows);
        while (rows->executeStep())
            visit(*rows);
        return {};
    } catch (const SQLite::Exception& error) {
        return storeFailure(error, path());
    }
}

base::Result<qint64> StoreContext::count(const EntityInfo& entity, const Predicate& predicate)
{
    qint64 result = 0;
    const auto counted =
        forEachRow(entity, "count(*)", {predicate, {}, -1},
                   [&result](SQLite::Statement& row) { result = row.getColumn(0).getInt64(); });
    if (!counted)
        return counted.failure();
    return result;
}

base::Result<qint64> StoreContext::sum(const EntityInfo& entity, QLatin1String attribute,
                                       const Predicate& predicate)
{
    if (entity.indexOf(attribute) < 0)
        return base::Failure{base::text("Failure.Query.UnknownAttribute", attribute, entity.name)};
    qint64 result = 0;
    // Not SQLite's sum(), which fails when it overflows.
    const QByteArray column = QByteArray("CAST(total(") + attribute.data() + ") AS INTEGER)";
    const auto added = forEachRow(entity, column, {predicate, {}, -1}, [&result](SQLite::Statement& row) {
        result = row.getColumn(0).getInt64();
    });
    if (!added)
        return added.failure();
    return result;
}

base::Result<QHash<RowId, qint64>> StoreContext::countBy(const EntityInfo& entity, QLatin1String reference,
                                                         const Predicate& predicate)
{
    const int index = entity.indexOf(reference);
    if (index < 0 || entity.attributes[static_cast<size_t>(index)].type != ValueType::Reference)
        return base::Failure{base::text("Failure.Query.NoReference", reference, entity.name)};
    const QByteArray name = reference.data();
    auto compiled = SqlCompiler::select(entity, name + ", count(*)", {predicate, {}, -1});
    if (!compiled)
        return compiled.failure();
    try {
        QHash<RowId, qint64> counts;
        auto rows = d->file->statement(compiled.value().sql + " GROUP BY " + name);
        compiled.value().bindTo(*rows);
        while (rows->executeStep()) {
            if (!rows->isColumnNull(0))
                counts.insert(rows->getColumn(0).getInt64(), rows->getColumn(1).getInt64());
        }
        return counts;
    } catch (const SQLite::Exception& error) {
        return storeFailure(error, path());
    }
}

void StoreContext::remove(Record& record)
{
    if (record.context() != this)
        return;
    if (record.isSaved()) {
        d->changes.noteRemoved(record.shared_from_this());
        return;
    }
    // A saved record that was to lead here leads again to where the store says.
    for (const auto& other : d->changes.dirtyReferringTo(record)) {
        auto& values = RecordState::values(*other);
        auto pending = std::exchange(values, {});
        load(*other);
        for (size_t i = 0; i < pending.size(); ++i) {
            const auto target = unsavedTarget(pending[i]);
            if (target.get() != &record)
                values[i] = pending[i];
        }
    }
    d->changes.dropInserted(record);
}

base::Result<void> StoreContext::save()
{
    Q_ASSERT(base::onMainThread());
    if (d->changes.isEmpty())
        return {};
    d->removedRows.clear();
    SaveOperation operation(*d->file, d->changes);
    try {
        WriteTransaction transaction(*d->file);
        operation.write();
        transaction.commit();
    } catch (const SQLite::Exception& error) {
        return storeFailure(error, path());
    }
    operation.apply(d->identity, d->removedRows);
    d->changes.clear();
    return {};
}

bool StoreContext::hasChanges() const
{
    return !d->changes.isEmpty();
}

void StoreContext::rollback()
{
    for (const auto& record : d->changes.inserted())
        RecordState::detach(*record);
    for (const auto& record : d->changes.dirty()) {
        RecordState::setClean(*record);
        RecordState::values(*record).clear();
    }
    d->changes.clear();
}

base::Result<void> StoreContext::checkIntegrity(bool thorough)
{
    try {
        auto check = d->file->statement(thorough ? "PRAGMA integrity_check(1)" : "PRAGMA quick_check(1)");
        const QString finding =
            check->executeStep() ? QString::fromStdString(check->getColumn(0).getString()) : QString();
        if (finding != QLatin1String("ok"))
            return base::Failure{base::text("Failure.Store.Damaged", path(), finding.simplified())};
        return {};
    } catch (const SQLite::Exception& error) {
        return storeFailure(error, path());
    }
}

void StoreContext::compact()
{
    try {
        const qint64 pages = d->file->number("PRAGMA page_count");
        const qint64 free = d->file->number("PRAGMA freelist_count");
        if (free * 4 < pages || free * d->file->number("PRAGMA page_size") < kWorthCompacting)
            return;
        d->file->database().exec("VACUUM");
        d->file->database().exec("PRAGMA wal_checkpoint(TRUNCATE)");
    } catch (const SQLite::Exception& error) {
        // A store that stays large is as good.
        qWarning("%s", qUtf8Printable(storeFailure(error, path()).reason));
    }
}

bool StoreContext::isTidying() const
{
    return d->file->isTidying();
}

QString StoreContext::storeID() const
{
    return d->storeID;
}

const QString& StoreContext::path() const
{
    return d->file->path();
}

std::shared_ptr<Record> StoreContext::target(const Record& record, int attribute, Maker maker)
{
    const QVariant reference = record.attribute(attribute);
    if (!reference.isValid())
        return nullptr;
    if (auto unsaved = unsavedTarget(reference))
        return unsaved;
    const RowId id = reference.toLongLong();
    const EntityInfo* entity = targetEntity(record.entity().attributes[static_cast<size_t>(attribute)]);
    const Records found = record.context()->recordsOf(*entity, maker, std::span(&id, 1));
    return found.empty() ? nullptr : found.front();
}

void StoreContext::setToOne(Record& record, int attribute, const std::shared_ptr<Record>& target)
{
    record.setAttribute(attribute, referenceTo(target));
}

StoreContext::Records StoreContext::sources(const Record& record, const EntityInfo& entity, int inverse,
                                            Maker maker)
{
    StoreContext* context = record.context();
    if (context == nullptr)
        return {};
    Records found;
    if (record.isSaved()) {
        Query query;
        query.predicate = Predicate::compare(entity.attributes[static_cast<size_t>(inverse)].name,
                                             Comparison::Equal, QVariant(record.rowId()));
        if (auto stored = context->fetchRecords(entity, maker, query))
            found = std::move(stored).value();
    }
    const ChangeSet& changes = context->d->changes;
    // Those of the store that are on their way elsewhere, or that the pending ones bring again.
    std::erase_if(found, [&](const auto& source) {
        return source->isDirty() || changes.removed().contains(source.get());
    });
    const Records pending = changes.referring(entity, inverse, record);
    found.insert(found.end(), pending.begin(), pending.end());
    return found;
}

qint64 StoreContext::countSources(const Record& record, const EntityInfo& entity, int inverse)
{
    if (record.context() == nullptr || !record.isSaved())
        return 0;
    const auto counted = record.context()->count(
        entity, Predicate::compare(entity.attributes[static_cast<size_t>(inverse)].name, Comparison::Equal,
                                   QVariant(record.rowId())));
    return counted ? counted.value() : 0;
}

} // namespace mosaro::store
