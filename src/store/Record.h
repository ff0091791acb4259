#pragma once

#include "store/Schema.h"

#include <QDateTime>
#include <QString>
#include <QVariant>
#include <QVariantList>
#include <QVariantMap>
#include <memory>
#include <vector>

namespace mosaro::store {

using RowId = qint64;
inline constexpr RowId kUnsavedRow = 0;

class StoreContext;

/// One row as one object. Made, kept apart and saved by a StoreContext; attributes are read from the store
/// when one is first asked for; dates come back in local time. Main thread only. A record outlives neither
/// its context's close nor its own removal in a useful way: afterwards every getter gives an empty value and
/// setters do nothing.
class Record : public std::enable_shared_from_this<Record> {
public:
    Record(const Record&) = delete;
    Record& operator=(const Record&) = delete;
    virtual ~Record() = default;

    [[nodiscard]] RowId rowId() const { return m_rowId; }
    [[nodiscard]] bool isSaved() const { return m_rowId != kUnsavedRow; }
    [[nodiscard]] bool isRemoved() const { return m_context == nullptr; }
    [[nodiscard]] bool isDirty() const { return m_dirtyCount > 0; }
    [[nodiscard]] const EntityInfo& entity() const { return *m_entity; }
    [[nodiscard]] StoreContext* context() const { return m_context; }

    /// An attribute by position; an invalid QVariant when it was never written.
    [[nodiscard]] QVariant attribute(int index) const;
    /// Takes the value as the attribute's type; an invalid one empties the attribute.
    void setAttribute(int index, const QVariant& value);
    /// Never written, or emptied again. Written empty text does not count.
    [[nodiscard]] bool isEmptyAttribute(QLatin1String name) const;

protected:
    Record(const EntityInfo& entity, StoreContext& context, RowId rowId);

private:
    friend class StoreContext;
    friend class RecordState;

    const EntityInfo* m_entity;
    StoreContext* m_context;
    RowId m_rowId;
    mutable std::vector<QVariant> m_values; ///< Empty while the row is not loaded.
    std::vector<bool> m_dirty;
    int m_dirtyCount = 0;
};

/// Declares getter and setter of the attribute at position `index` of the entity.
#define MOSARO_ATTRIBUTE(index, Type, name, setName)                                                         \
    [[nodiscard]] Type name() const                                                                          \
    {                                                                                                        \
        return attribute(index).template value<Type>();                                                      \
    }                                                                                                        \
    void setName(const Type& value)                                                                          \
    {                                                                                                        \
        setAttribute(index, QVariant::fromValue(value));                                                     \
    }

} // namespace mosaro::store
