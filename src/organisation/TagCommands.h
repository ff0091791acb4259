#pragma once

#include "base/Result.h"
#include "organisation/TagList.h"
#include "store/LibraryState.h"

#include <optional>

namespace mosaro::base {
struct ColorValue;
}

namespace mosaro::organisation {

/// The commands of a tag's menus.
enum class TagCommand { NewTag, TagColor, Edit, Delete };

/// Whether a command makes sense with so many tags selected.
[[nodiscard]] bool isTagCommandPossible(TagCommand command, int selected);

/// Whether items that are dragged may be dropped on a tag, however many tags there are: not between rows, and
/// only while exactly one tag is selected, whichever that is.
[[nodiscard]] bool isTagDropPossible(bool isBusy, bool carriesItems, bool isOnRow, int selected);

/// What an alert says of a title that is taken. A long title is cut, so that the alert fits on the screen.
[[nodiscard]] QString titleTakenText(const QString& title);

/// Changes of single tags in the store; each saves at once.
class TagCommands {
public:
    TagCommands(store::StoreContext& context, store::LibraryState& state) : m_context(context), m_state(state)
    {
    }

    /// A tag with the defaults; gives its row. The caller has seen to it that the title is free.
    [[nodiscard]] base::Result<store::RowId> addTag(const QString& title);
    /// A title without a visible character is none; the caller leaves it alone.
    [[nodiscard]] static bool isAcceptableTitle(const QString& title);
    [[nodiscard]] base::Result<void> rename(store::RowId tag, const QString& title);
    /// Nothing takes the colour away.
    [[nodiscard]] base::Result<void> setTagColor(store::RowId tag,
                                                 const std::optional<base::ColorValue>& color);
    /// Takes along what the library's state remembers of it, and its links.
    [[nodiscard]] base::Result<void> remove(const TagRecord& tag);

private:
    template <class Change>
    base::Result<void> change(store::RowId tag, Change apply);
    base::Result<void> saveOrDrop();

    store::StoreContext& m_context;
    store::LibraryState& m_state;
};

} // namespace mosaro::organisation
