#pragma once

#include "browser/SortMemory.h"

#include <QSet>
#include <functional>

class QMenu;
class QWidget;

namespace mosaro::browser {

/// What the context menu of the grid can do now, and what it calls. Tags are those of the menu vocabulary.
struct GridMenuState {
    std::optional<BrowserOrder> order;
    bool hasItems = false;
    bool hasSelection = false;
    bool canImport = false;
    bool isBusy = false;
    QSet<int> ratings; ///< Of the selected items.
};
struct GridMenuActions {
    std::function<void()> import;
    std::function<void(int tag)> rate;
    std::function<void(int tag)> sort;
    std::function<void(int tag)> direct;
    std::function<void()> selectAll;
    std::function<void()> showTags;
};

/// The menu, to be deleted after use.
[[nodiscard]] QMenu* makeGridMenu(QWidget* parent, const GridMenuState& state,
                                  const GridMenuActions& actions);

} // namespace mosaro::browser
