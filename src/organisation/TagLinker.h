#pragma once

#include "base/Result.h"
#include "store/StoreContext.h"

#include <QHash>
#include <vector>

namespace mosaro::organisation {

/// What happens to the items of a run.
enum class TagDirection { Add, Remove };

/// One tag and many items: puts the tag on each or takes it off, item by item in their order. Items that have
/// the tag already, or do not have it, are passed over, and so are those that are gone. What the next few
/// hundred items need is read in few queries.
class TagLinker {
public:
    /// `perSave` changes make one save; saveRest() saves what is left over.
    TagLinker(store::StoreContext& context, store::RowId tag, std::vector<store::RowId> items,
              TagDirection direction, int perSave = 1);

    [[nodiscard]] qsizetype count() const { return qsizetype(m_items.size()); }
    [[nodiscard]] TagDirection direction() const { return m_direction; }
    /// Positions ascend, one after the other.
    void step(qsizetype position);
    void saveRest();

    /// Links that came or went, and are saved.
    [[nodiscard]] qsizetype changed() const { return m_changed; }
    /// Changes that could not be saved; they are dropped, and the reason of the last one is kept.
    [[nodiscard]] qsizetype failed() const { return m_failed; }
    [[nodiscard]] const QString& reason() const { return m_reason; }

private:
    void prepare(qsizetype from);
    void link(store::RowId item);
    void unlink(store::RowId item);
    void didChange();

    store::StoreContext& m_context;
    store::RowId m_tag;
    QString m_tagID;
    std::vector<store::RowId> m_items;
    TagDirection m_direction;
    int m_perSave;
    QHash<store::RowId, QString> m_mediaIDs;     ///< Of the items at hand, when adding.
    QHash<store::RowId, store::RowId> m_present; ///< Their links with the tag, by item.
    int m_pending = 0;
    qsizetype m_changed = 0;
    qsizetype m_failed = 0;
    QString m_reason;
};

/// The items of these identifiers that there are.
[[nodiscard]] std::vector<store::RowId> mediaRows(store::StoreContext& context, const QStringList& mediaIDs);

} // namespace mosaro::organisation
