#include "base/Text.h"
#include "shell/MenuRules.h"
#include "shell/ZNMenuManager.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QtTest>

using namespace Qt::StringLiterals;
using namespace mosaro;
using namespace mosaro::shell;

namespace {

/// An owner that notes what it is told.
struct Recorder {
    QList<std::pair<Command, int>> performed;
    bool possible = true;

    MenuTarget target()
    {
        return {[this](const MenuRow& row) {
                    performed.append({row.command, row.tag});
                },
                [this](const MenuRow&) { return possible; }};
    }
};

} // namespace

class MenusTest : public QObject {
    Q_OBJECT

    std::unique_ptr<ZNMenuManager> m_menus;
    Recorder m_library;
    Recorder m_browser;

    [[nodiscard]] QAction* item(MenuId menu, int position) const { return m_menus->item(menu, position); }

private Q_SLOTS:
    void initTestCase() { base::installTexts(); }
    void init()
    {
        m_menus = std::make_unique<ZNMenuManager>();
        m_menus->prepareBasicMenus();
        m_library = {};
        m_browser = {};
    }

    /// The table has no gaps: what it calls a position is one.
    void rowsStandAtTheirPositions()
    {
        for (const MenuRow& row : menuTable()) {
            QCOMPARE(m_menus->menu(row.menu)->actions().value(row.position), item(row.menu, row.position));
        }
        QCOMPARE(item(MenuId::BrowserView, 6)->text(), u"★★★★★"_s);
        QCOMPARE(item(MenuId::BrowserView, 0)->text(), base::text("CX.Rating").toUpper());
    }

    void shortcutsDoNotClash()
    {
        QSet<QString> seen;
        for (const MenuRow& row : menuTable()) {
            if (row.shortcut == nullptr) {
                continue;
            }
            for (const QKeySequence& sequence :
                 QKeySequence::listFromString(QString::fromLatin1(row.shortcut))) {
                QVERIFY2(!sequence.isEmpty() && sequence[0].key() != Qt::Key_unknown, row.shortcut);
                QVERIFY2(!seen.contains(sequence.toString()), row.shortcut);
                seen.insert(sequence.toString());
            }
        }
        QVERIFY(seen.contains(u"Ctrl+Q"_s));
    }

    void mnemonicsAreUniqueInTheirMenu()
    {
        QSet<QString> seen;
        const auto check = [&seen](int menu, const QString& title) {
            const auto at = title.indexOf(u'&');
            if (at < 0) {
                return true;
            }
            const QString mark = QString::number(menu) + title.mid(at + 1, 1).toLower();
            const bool isNew = !seen.contains(mark);
            seen.insert(mark);
            return isNew;
        };
        for (int menu = 0; menu < kTopLevelMenus; ++menu) {
            const QString title = base::text(menuTitleKey(static_cast<MenuId>(menu)));
            QVERIFY2(title.contains(u'&') && check(-1, title), qPrintable(title));
        }
        for (const MenuRow& row : menuTable()) {
            if (row.key != nullptr) {
                const QString title = base::text(row.key);
                QVERIFY2(check(static_cast<int>(row.menu), title), qPrintable(title));
            }
        }
    }

    void applicationRules()
    {
        const struct {
            const char* name;
            Command command;
            ApplicationSituation situation; // chooser, window, busy
            bool enabled;
        } rows[] = {
            {"show", Command::ShowMosaro, {false, false, false}, true},
            {"show beside the chooser", Command::ShowMosaro, {true, false, false}, false},
            {"quit", Command::Quit, {false, true, false}, true},
            {"quit while busy", Command::Quit, {false, true, true}, false},
            {"switch while busy", Command::SwitchToLibrary, {false, true, true}, false},
            {"preferences", Command::ShowPreferences, {false, true, false}, true},
            {"preferences, no window", Command::ShowPreferences, {false, false, false}, false},
            {"preferences while busy", Command::ShowPreferences, {false, true, true}, false},
            {"about while busy", Command::ShowAbout, {false, true, true}, true},
            {"no library", Command::NoLibrary, {false, false, false}, false},
        };
        for (const auto& row : rows) {
            QVERIFY2(validateMenuItem(row.command, row.situation) == row.enabled, row.name);
        }
    }

    void itemsShowAndEnableWithTheirOwner()
    {
        QAction* collection = item(MenuId::File, 0);
        QAction* noLibrary = item(MenuId::File, 11);
        QAction* sort = item(MenuId::BrowserView, 9);
        QVERIFY(!collection->isVisible() && !sort->isVisible());
        QVERIFY(noLibrary->isVisible() || !m_menus->menu(MenuId::File)->isVisible());

        m_menus->setupMenuItems(MenuOwner::Library, m_library.target());
        m_menus->setupMenuItems(MenuOwner::Browser, m_browser.target());
        QVERIFY(collection->isVisible() && collection->isEnabled());
        QVERIFY(sort->isVisible() && sort->isEnabled());
        QVERIFY(!noLibrary->isVisible());
        QVERIFY(!item(MenuId::File, 1)->isVisible());
        QVERIFY(!item(MenuId::View, 6)->isVisible());

        m_menus->setChecked(Command::SortMedia, 23, true);
        m_menus->removeMenuItems(MenuOwner::Library);
        m_menus->removeMenuItems(MenuOwner::Browser);
        QVERIFY(collection->isVisible() && !collection->isEnabled());
        QVERIFY(!sort->isEnabled() && !sort->isChecked());
        QVERIFY(noLibrary->isVisible() && !noLibrary->isEnabled());
        collection->trigger();
        QVERIFY(m_library.performed.isEmpty());
    }

    void openMenuAsksTheOwner()
    {
        m_menus->setupMenuItems(MenuOwner::Library, m_library.target());
        m_library.possible = false;
        Q_EMIT m_menus->menu(MenuId::File)->aboutToShow();
        QVERIFY(!item(MenuId::File, 0)->isEnabled());
        Q_EMIT m_menus->menu(MenuId::File)->aboutToHide();
        QVERIFY2(item(MenuId::File, 0)->isEnabled(), "its keys must work once it is possible again");
    }

    void impossibleCommandIsNotPerformed()
    {
        m_menus->setupMenuItems(MenuOwner::Library, m_library.target());
        m_library.possible = false;
        item(MenuId::File, 2)->trigger();
        QVERIFY(m_library.performed.isEmpty());
        m_library.possible = true;
        item(MenuId::File, 2)->trigger();
        item(MenuId::File, 9)->trigger();
        const QList<std::pair<Command, int>> expected{{Command::AddCollectionItem, 2},
                                                      {Command::Import, 2000}};
        QCOMPARE(m_library.performed, expected);
    }

    void ticksFollowTheOwnerAndNotTheClick()
    {
        m_menus->setupMenuItems(MenuOwner::Browser, m_browser.target());
        m_menus->setChecked(Command::SortMedia, 30, true);
        item(MenuId::BrowserView, 9)->trigger();
        QVERIFY(!item(MenuId::BrowserView, 9)->isChecked());
        item(MenuId::BrowserView, 16)->trigger();
        QVERIFY(item(MenuId::BrowserView, 16)->isChecked());
        const QList<std::pair<Command, int>> expected{{Command::SortMedia, 23}, {Command::SortMedia, 30}};
        QCOMPARE(m_browser.performed, expected);
    }

    void menusServeOneWindowAfterTheOther()
    {
        {
            QMenuBar first;
            m_menus->installIn(first);
            QCOMPARE(first.actions().size(), kTopLevelMenus);
        }
        QMenuBar second;
        m_menus->installIn(second);
        QCOMPARE(second.actions().size(), kTopLevelMenus);
        QVERIFY(!m_menus->menu(MenuId::Help)->actions().isEmpty());
    }
};

QTEST_MAIN(MenusTest)
#include "tst_menus.moc"
