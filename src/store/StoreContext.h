#pragma once

#include "base/Result.h"
#include "store/Query.h"
#include "store/Record.h"

#include <QHash>
#include <functional>
#include <memory>
#include <span>
#include <vector>

namespace SQLite {
class Statement;
}

namespace mosaro::store {

/// The records of one open store file: identity (one row, one object, for as long as someone holds it),
/// queries and saves. Main thread only.
class StoreContext {
public:
    /// Opens or creates the store file: SQLite in WAL mode, migrated to the newest schema. A newer schema, a
    /// file that is no store and a failed migration are failures, and leave the file as it was.
    [[nodiscard]] static base::Result<std::unique_ptr<StoreContext>> open(const QString& path);
    ~StoreContext();
    StoreContext(const StoreContext&) = delete;
    StoreContext& operator=(const StoreContext&) = delete;

    /// A new record, in no row yet. It is written by the next save().
    template <class T>
    [[nodiscard]] std::shared_ptr<T> insert();

    /// The record of a row. Null when there is no such row.
    template <class T>
    [[nodiscard]] std::shared_ptr<T> object(RowId id);

    /// Records of several rows with their attributes, read in one go; rows that are gone are left out, the
    /// order is that of `ids`.
    template <class T>
    [[nodiscard]] std::vector<std::shared_ptr<T>> objects(std::span<const RowId> ids);

    /// Matching records, saved ones only.
    template <class T>
    [[nodiscard]] base::Result<std::vector<std::shared_ptr<T>>> fetch(const Query& query);
    /// The first match or null; a failed query counts as no match.
    template <class T>
    [[nodiscard]] std::shared_ptr<T> first(const Predicate& predicate);

    [[nodiscard]] base::Result<std::vector<RowId>> fetchIds(const EntityInfo& entity, const Query& query);
    [[nodiscard]] base::Result<qint64> count(const EntityInfo& entity, const Predicate& predicate);
    /// Sum of an integer attribute.
    [[nodiscard]] base::Result<qint64> sum(const EntityInfo& entity, QLatin1String attribute,
                                           const Predicate& predicate);
    /// How many matching records lead to each row through a reference. Rows that none leads to are left out.
    [[nodiscard]] base::Result<QHash<RowId, qint64>>
    countBy(const EntityInfo& entity, QLatin1String reference, const Predicate& predicate);

    /// For parts of the store that read columns without records. `columns` is SQL of the caller's own.
    [[nodiscard]] base::Result<void> forEachRow(const EntityInfo& entity, const QByteArray& columns,
                                                const Query& query,
                                                const std::function<void(SQLite::Statement&)>& visit);

    /// Marks for removal at the next save(); what the delete rules take along goes in that same transaction.
    /// Items go with their collection, links with either end.
    void remove(Record& record);

    /// Writes all that is pending in one transaction. On failure the store is as before and everything stays
    /// pending.
    [[nodiscard]] base::Result<void> save();
    [[nodiscard]] bool hasChanges() const;
    /// Drops everything pending: unsaved records are removed, dirty attributes read anew.
    void rollback();

    /// Looks through the pages of the file, and with `thorough` whether indexes and tables agree, too. The
    /// reason names the first damage.
    [[nodiscard]] base::Result<void> checkIntegrity(bool thorough);
    /// Compacts the file when much of it is free. Called at open.
    void compact();
    /// The store tidies up on a worker; who saves thousands of times in a row pauses meanwhile.
    [[nodiscard]] bool isTidying() const;
    /// Random text made with the file; part of archived references.
    [[nodiscard]] QString storeID() const;
    [[nodiscard]] const QString& path() const;

    // For the entity classes.
    template <class T>
    [[nodiscard]] static std::shared_ptr<T> toOne(const Record& record, int attribute);
    static void setToOne(Record& record, int attribute, const std::shared_ptr<Record>& target);
    template <class T>
    [[nodiscard]] static std::vector<std::shared_ptr<T>> toMany(const Record& record, int inverse);
    template <class T>
    [[nodiscard]] static qint64 countToMany(const Record& record, int inverse);

private:
    friend class Record;
    class Private;
    using Maker = std::shared_ptr<Record> (*)(StoreContext& context, RowId id);
    using Records = std::vector<std::shared_ptr<Record>>;

    explicit StoreContext(std::unique_ptr<Private> d);

    template <class T>
    [[nodiscard]] static std::shared_ptr<Record> make(StoreContext& context, RowId id);
    template <class T>
    [[nodiscard]] static std::vector<std::shared_ptr<T>> cast(const Records& records);

    [[nodiscard]] std::shared_ptr<Record> insertRecord(Maker maker);
    [[nodiscard]] Records recordsOf(const EntityInfo& entity, Maker maker, std::span<const RowId> ids);
    [[nodiscard]] base::Result<Records> fetchRecords(const EntityInfo& entity, Maker maker,
                                                     const Query& query);
    [[nodiscard]] static std::shared_ptr<Record> target(const Record& record, int attribute, Maker maker);
    [[nodiscard]] static Records sources(const Record& record, const EntityInfo& entity, int inverse,
                                         Maker maker);
    [[nodiscard]] static qint64 countSources(const Record& record, const EntityInfo& entity, int inverse);

    void load(const Record& record);
    void noteDirty(const Record& record);

    std::unique_ptr<Private> d;
};

} // namespace mosaro::store

#include "store/StoreContextTemplates.h"
