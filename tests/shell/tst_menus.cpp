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
        for (const MenuRow& row : menuTable())
            QCOMPARE(m_menus->menu(row.menu)->actions().value(row.position), item(row.menu, row.position));
        QCOMPARE(item(MenuId::BrowserView, 6)->text(), u"★★★★★"_s);
        QCOMPARE(item(MenuId::BrowserView, 0)->text(), base::text("CX.Rating").toUpper());
    }

    void shortcutsDoNotClash()
    {
        QSet<QString> seen;
        for (const MenuRow& row : menuTable()) {
            if (row.shortcut == nullptr)
                continue;
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
        const auto isNew = [&seen](int menu, const QString& title) {
            const auto at = title.indexOf(u'&');
            const QString mark = QString::number(menu) + title.mid(at + 1, 1).toLower();
            const auto size = seen.size();
            if (at >= 0)
                seen.insert(mark);
            return at < 0 || seen.size() > size;
        };
        for (int menu = 0; menu < kTopLevelMenus; ++menu) {
            const QString title = base::text(menuTitleKey(static_cast<MenuId>(menu)));
            QVERIFY2(title.contains(u'&') && isNew(-1, title), qPrintable(title));
        }
        for (const MenuRow& row : menuTable()) {
            const QString title = row.key == nullptr ? QString() : base::text(row.key);
            QVERIFY2(isNew(static_cast<int>(row.menu), title), qPrintable(title));
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
        for (const auto& [name, command, situation, enabled] : rows)
            QVERIFY2(validateMenuItem(command, situation) == enabled, name);
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
        for (const QAction* shown : {collection, sort})
            QVERIFY(shown->isVisible() && shown->isEnabled());
        for (const QAction* hidden : {noLibrary, item(MenuId::File, 1), item(MenuId::View, 6)})
            QVERIFY(!hidden->isVisible());

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
        for (int window = 0; window < 2; ++window) {
            QMenuBar bar;
            m_menus->installIn(bar);
            QCOMPARE(bar.actions().size(), kTopLevelMenus);
            QVERIFY(!m_menus->menu(MenuId::Help)->actions().isEmpty());
        }
    }
};

QTEST_MAIN(MenusTest)
#include "tst_menus.moc"
