#pragma once

#include "organisation/SlicedRun.h"
#include "store/StoreContext.h"

#include <functional>
#include <vector>

namespace mosaro::store {
class ZNDBManager;
}

namespace mosaro::organisation {

enum class ColorCommand { OpenInNewTab, ShowColorInColorPicker, LikeColor, UnlikeColor };

/// Whether a command is possible with that many swatches selected.
[[nodiscard]] bool isColorCommandPossible(ColorCommand command, int selected);

/// The marks beside "like" and "unlike".
struct LikeMarks {
    Qt::CheckState like = Qt::Unchecked;
    Qt::CheckState unlike = Qt::Unchecked;
    bool operator==(const LikeMarks&) const = default;
};
/// Swatches of both kinds give both commands the mixed mark; none at all give none.
[[nodiscard]] LikeMarks likeMarks(bool anyLiked, bool anyUnliked);

/// Deletes colours that no item has any more, one save each, while the window stays live.
class OrphanedColors : public QObject {
public:
    explicit OrphanedColors(store::ZNDBManager& library, QObject* parent = nullptr);

    /// Rows that are no orphans by the time it comes to them are left alone.
    void collect(const std::vector<store::RowId>& rows);
    [[nodiscard]] bool isRunning() const { return m_run.isRunning(); }

private:
    void start();
    void removeIfUnused(store::RowId row) const;

    store::ZNDBManager& m_library;
    SlicedRun m_run;
    std::vector<store::RowId> m_waiting; ///< Came in while a run went on.
};

} // namespace mosaro::organisation
