#include "browser/ui/GridMenu.h"

#include "base/Text.h"

#include <QAction>
#include <QActionGroup>
#include <QKeySequence>
#include <QMenu>
#include <array>

namespace mosaro::browser {

namespace {

constexpr int kFirstSortTag = 23;
constexpr int kAscendingTag = 33;
constexpr int kDescendingTag = 34;
constexpr int kHighestRating = 5;

QString sortTitle(int key)
{
    const std::array titles{
        base::text("CX.Sort.Title"),         base::text("CX.Sort.FileSize"),
        base::text("CX.Sort.Rating"),        base::text("CX.Sort.Width"),
        base::text("CX.Sort.Height"),        base::text("CX.Sort.Date.Created"),
        base::text("CX.Sort.Date.Modified"), base::text("CX.Sort.Date.Imported"),
        base::text("CX.Sort.Last.Opened"),
    };
    return titles.at(size_t(key));
}
constexpr int kSortKeys = 9;

void addEntry(QMenu& menu, const QString& title, bool checked, bool enabled, std::function<void()> run)
{
    QAction* action = menu.addAction(title);
    action->setCheckable(true);
    action->setChecked(checked);
    action->setEnabled(enabled);
    QObject::connect(action, &QAction::triggered, &menu, std::move(run));
}

void addRatings(QMenu& menu, const GridMenuState& state, const GridMenuActions& actions)
{
    QMenu* ratings = menu.addMenu(base::text("CX.Rating"));
    ratings->setEnabled(state.hasSelection && !state.isBusy);
    for (int rating = 0; rating <= kHighestRating; ++rating) {
        const QString title = rating == 0 ? base::text("Basic.None") : QString(rating, QChar(0x2605));
        addEntry(*ratings, title, state.ratings.contains(rating), true,
                 [rate = actions.rate, rating] { rate(rating); });
    }
}

void addOrders(QMenu& menu, const GridMenuState& state, const GridMenuActions& actions)
{
    QMenu* sort = menu.addMenu(base::text("CX.Sort.By"));
    sort->setEnabled(state.hasItems && !state.isBusy);
    const BrowserOrder order = state.order.value_or(BrowserOrder{});
    for (int key = 0; key < kSortKeys; ++key) {
        addEntry(*sort, sortTitle(key), key == order.key, true,
                 [run = actions.sort, tag = key + kFirstSortTag] { run(tag); });
    }
    sort->addSeparator();
    addEntry(*sort, base::text("CX.Sort.Ascending"), state.order && order.ascending, true,
             [run = actions.direct] { run(kAscendingTag); });
    addEntry(*sort, base::text("CX.Sort.Descending"), state.order && !order.ascending, true,
             [run = actions.direct] { run(kDescendingTag); });
}

} // namespace

QMenu* makeGridMenu(QWidget* parent, const GridMenuState& state, const GridMenuActions& actions)
{
    auto* menu = new QMenu(parent);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (state.canImport) {
        QAction* import = menu->addAction(base::text("Basic.Import"));
        import->setEnabled(!state.isBusy);
        QObject::connect(import, &QAction::triggered, menu, actions.import);
        menu->addSeparator();
    }
    QAction* tags = menu->addAction(base::text("CX.Tags"));
    tags->setEnabled(state.hasSelection && !state.isBusy);
    QObject::connect(tags, &QAction::triggered, menu, actions.showTags);
    addRatings(*menu, state, actions);
    menu->addSeparator();
    addOrders(*menu, state, actions);
    menu->addSeparator();
    QAction* all = menu->addAction(base::text("Basic.Select.All"));
    all->setEnabled(state.hasItems);
    QObject::connect(all, &QAction::triggered, menu, actions.selectAll);
    return menu;
}

} // namespace mosaro::browser
