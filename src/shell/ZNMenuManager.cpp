#include "shell/ZNMenuManager.h"

#include "base/Text.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>

namespace mosaro::shell {

namespace {

constexpr int kHeaderPointSize = 14;

QString titleOf(const MenuRow& row)
{
    if (row.kind == RowKind::Header) {
        return base::text(row.key).toUpper();
    }
    return row.key != nullptr ? base::text(row.key) : QString(row.tag, QChar(u'★'));
}

} // namespace

ZNMenuManager& ZNMenuManager::sharedManager()
{
    // Menus are widgets: they go with the application object and not after it.
    static QPointer<ZNMenuManager> manager;
    if (manager.isNull()) {
        manager = new ZNMenuManager;
        manager->setParent(qApp);
    }
    return *manager;
}

ZNMenuManager::ZNMenuManager() = default;
ZNMenuManager::~ZNMenuManager() = default;

void ZNMenuManager::prepareBasicMenus()
{
    if (!m_items.empty()) {
        return;
    }
    for (int i = 0; i < kMenus; ++i) {
        const auto id = static_cast<MenuId>(i);
        auto menu = std::make_unique<QMenu>(base::text(menuTitleKey(id)));
        connect(menu.get(), &QMenu::aboutToShow, this, [this, id] { updateMenu(id, true); });
        // While no menu is open items are enabled as far as they have a target, so that their keys reach
        // perform().
        connect(menu.get(), &QMenu::aboutToHide, this, [this, id] { updateMenu(id, false); });
        m_menus[static_cast<std::size_t>(i)] = std::move(menu);
    }
    for (const MenuRow& row : menuTable()) {
        addRow(row);
    }
    updateAll();
}

void ZNMenuManager::addRow(const MenuRow& row)
{
    m_items.push_back({row, makeAction(*menu(row.menu), row)});
}

QAction* ZNMenuManager::makeAction(QMenu& menu, const MenuRow& row)
{
    if (row.kind == RowKind::Separator) {
        return menu.addSeparator();
    }
    if (row.kind == RowKind::Submenu) {
        return menu.addMenu(this->menu(row.submenu));
    }
    QAction* action = menu.addAction(titleOf(row));
    action->setCheckable(row.kind == RowKind::Check);
    action->setMenuRole(QAction::NoRole);
    if (row.shortcut != nullptr) {
        action->setShortcuts(QKeySequence::listFromString(QString::fromLatin1(row.shortcut)));
    }
    if (row.kind == RowKind::Header) {
        QFont font = QApplication::font("QMenu");
        font.setPixelSize(kHeaderPointSize);
        action->setFont(font);
    }
    connect(action, &QAction::triggered, this, [this, &row] { perform(row); });
    return action;
}

void ZNMenuManager::installIn(QMenuBar& menuBar)
{
    for (int i = 0; i < kTopLevelMenus; ++i) {
        menuBar.addMenu(m_menus[static_cast<std::size_t>(i)].get());
    }
}

void ZNMenuManager::setupMenuItems(MenuOwner owner, MenuTarget target)
{
    m_targets[owner] = std::move(target);
    m_seen[owner] = true;
    updateAll();
}

void ZNMenuManager::removeMenuItems(MenuOwner owner)
{
    m_targets.erase(owner);
    uncheckAllMenuItems(owner);
    updateAll();
}

void ZNMenuManager::perform(const MenuRow& row)
{
    // The tick follows what the owner says, and not the click.
    if (QAction* action = item(row.menu, row.position); action != nullptr && action->isCheckable()) {
        action->setChecked(!action->isChecked());
    }
    const auto target = m_targets.find(row.owner);
    if (target == m_targets.end()) {
        return;
    }
    if (!isValid(row)) {
        QApplication::beep();
        return;
    }
    const MenuTarget copy = target->second; // The owner may go away while it acts.
    copy.perform(row);
}

bool ZNMenuManager::isValid(const MenuRow& row) const
{
    const auto target = m_targets.find(row.owner);
    return target != m_targets.end() && (!target->second.validate || target->second.validate(row));
}

void ZNMenuManager::updateMenu(MenuId menu, bool validated)
{
    for (const auto& [owner, target] : m_targets) {
        if (validated && target.willOpen) {
            target.willOpen(menu);
        }
    }
    for (const Item& item : m_items) {
        if (item.row.menu == menu) {
            updateItem(item, validated);
        }
    }
}

void ZNMenuManager::updateAll()
{
    for (const Item& item : m_items) {
        updateItem(item, false);
    }
}

void ZNMenuManager::updateItem(const Item& item, bool validated)
{
    const MenuRow& row = item.row;
    if (row.kind == RowKind::Separator) {
        return;
    }
    const bool hasTarget = m_targets.contains(row.owner);
    // The line that tells of no library stands there only as long as that is so.
    const bool isShown = row.command == Command::NoLibrary ? !m_targets.contains(MenuOwner::Library)
                                                           : m_seen.contains(row.owner);
    const bool enabled = row.kind != RowKind::Header && row.command != Command::NoLibrary &&
                         (validated ? isValid(row) : hasTarget);
    item.action->setVisible(isShown);
    item.action->setEnabled(enabled);
}

void ZNMenuManager::setMenuItemTitle(const char* key, Command command, int withTag)
{
    for (const Item& item : m_items) {
        if (item.row.command == command && item.row.tag == withTag) {
            item.action->setText(base::text(key));
        }
    }
}

void ZNMenuManager::setChecked(Command command, int tag, bool checked)
{
    for (const Item& item : m_items) {
        if (item.row.command == command && item.row.tag == tag) {
            item.action->setChecked(checked);
        }
    }
}

void ZNMenuManager::uncheckAllMenuItems(MenuOwner owner)
{
    for (const Item& item : m_items) {
        if (item.row.owner == owner && item.action->isCheckable()) {
            item.action->setChecked(false);
        }
    }
}

QAction* ZNMenuManager::item(MenuId menu, int position) const
{
    for (const Item& item : m_items) {
        if (item.row.menu == menu && item.row.position == position) {
            return item.action;
        }
    }
    return nullptr;
}

} // namespace mosaro::shell
