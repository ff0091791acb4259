#pragma once

#include "shell/MenuTable.h"

#include <QObject>
#include <array>
#include <functional>
#include <map>
#include <memory>
#include <vector>

class QAction;
class QMenu;
class QMenuBar;

namespace mosaro::shell {

/// Who carries the items of one owner out, and says whether they can be now.
struct MenuTarget {
    std::function<void(const MenuRow&)> perform;
    std::function<bool(const MenuRow&)> validate;
    /// Before the items of a menu that opens are asked for; null: nothing is to be done.
    std::function<void(MenuId)> willOpen = {};
};

/// The main menu: made once from the table, shown by whatever window carries a menu bar. Items are wired by
/// owner: without a target they are disabled, and those whose owner has never been there are not shown.
class ZNMenuManager : public QObject {
    Q_OBJECT

public:
    static ZNMenuManager& sharedManager();
    ZNMenuManager();
    ~ZNMenuManager() override;

    /// Makes and titles all menus; later calls do nothing.
    void prepareBasicMenus();
    /// Puts the top-level menus into a window's menu bar.
    void installIn(QMenuBar& menuBar);

    void setupMenuItems(MenuOwner owner, MenuTarget target);
    void removeMenuItems(MenuOwner owner);

    /// Looks the key up and sets the title of the item with this command and tag.
    void setMenuItemTitle(const char* key, Command command, int withTag = -1);
    void setChecked(Command command, int tag, bool checked);
    /// Takes the ticks off all items of an owner.
    void uncheckAllMenuItems(MenuOwner owner);

    [[nodiscard]] QMenu* menu(MenuId id) const { return m_menus[static_cast<std::size_t>(id)].get(); }
    /// The item at a position of the table; null when there is none.
    [[nodiscard]] QAction* item(MenuId menu, int position) const;

private:
    struct Item {
        const MenuRow& row;
        QAction* action;
    };
    void addRow(const MenuRow& row);
    QAction* makeAction(QMenu& menu, const MenuRow& row);
    void perform(const MenuRow& row);
    [[nodiscard]] bool isValid(const MenuRow& row) const;
    void updateMenu(MenuId menu, bool validated);
    void updateAll();
    void updateItem(const Item& item, bool validated);

    std::array<std::unique_ptr<QMenu>, kMenus> m_menus;
    std::vector<Item> m_items;
    std::map<MenuOwner, MenuTarget> m_targets;
    std::map<MenuOwner, bool> m_seen;
};

} // namespace mosaro::shell
