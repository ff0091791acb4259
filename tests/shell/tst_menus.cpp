#include "base/Text.h"
#include "shell/MenuRules.h"
#include "shell/ZNMenuManager.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QtTest>

using namespace mosaro;
using namespace mosaro::shell;

Q_DECLARE_METATYPE(mosaro::shell::MenuId)
Q_DECLARE_METATYPE(mosaro::shell::Command)

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

QString plain(QString title)
{
    return title.remove(u'&');
}

} // namespace

class MenusTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { base::installTexts(); }
    void positions_data();
    void positions();
    void rowsStandAtTheirPositions();
    void shortcutsDoNotClash();
    void mnemonicsAreUniqueInTheirMenu();
    void applicationRules_data();
    void applicationRules();
    void itemsShowAndEnableWithTheirOwner();
    void openMenuAsksTheOwner();
    void impossibleCommandIsNotPerformed();
    void ticksFollowTheOwnerAndNotTheClick();
    void titlesChangeByKey();
    void menusServeOneWindowAfterTheOther();
};

void MenusTest::positions_data()
{
    QTest::addColumn<MenuId>("menu");
    QTest::addColumn<int>("position");
    QTest::addColumn<QString>("title");
    QTest::addColumn<int>("tag");
    const auto row = [](const char* name, MenuId menu, int position, const QString& title, int tag = -1) {
        QTest::newRow(name) << menu << position << title << tag;
    };
    row("collection", MenuId::File, 0, base::text("File.New.Collection"), 0);
    row("smart collection", MenuId::File, 1, base::text("File.New.SmartCollection"), 1);
    row("folder", MenuId::File, 2, base::text("File.New.Folder"), 2);
    row("tag", MenuId::File, 3, base::text("File.New.Tag"), 3);
    row("close", MenuId::File, 5, base::text("File.Close.Window"));
    row("switch", MenuId::File, 7, base::text("File.Switch.To.Library"));
    row("import", MenuId::File, 9, base::text("File.Import"), 2000);
    row("export", MenuId::File, 10, base::text("File.Export"), 2001);
    row("no library", MenuId::File, 11, base::text("Basic.No.Library"));
    row("find", MenuId::Edit, 9, base::text("Basic.Find"));
    row("collections tab", MenuId::View, 0, base::text("View.Collections"), 0);
    row("sidebar", MenuId::View, 4, base::text("Basic.Hide.Sidebar"));
    row("browser", MenuId::View, 5, base::text("View.BrowserView"));
    row("inspector", MenuId::View, 6, base::text("View.Inspector"));
    row("actual size", MenuId::View, 8, base::text("View.Actual.Size"));
    row("fit", MenuId::View, 9, base::text("View.Zoom.To.Fit"));
    row("zoom in", MenuId::View, 10, base::text("View.Zoom.In"));
    row("zoom out", MenuId::View, 11, base::text("View.Zoom.Out"));
    row("full screen", MenuId::View, 13, base::text("View.Enter.Full.Screen"));
    row("mini", MenuId::Window, 4, base::text("Window.Mosaro.Mini"), 1000);
    row("release notes", MenuId::Help, 2, base::text("Help.ReleaseNotes"));
    row("feedback", MenuId::Help, 3, base::text("Help.Feedback"));
    row("web site", MenuId::Help, 5, base::text("Help.WebSite"));
    row("no stars", MenuId::BrowserView, 1, base::text("Basic.None"), 0);
    row("five stars", MenuId::BrowserView, 6, QStringLiteral("★★★★★"), 5);
    row("rating header", MenuId::BrowserView, 0, base::text("CX.Rating").toUpper(), 100);
    row("sort by title", MenuId::BrowserView, 9, base::text("CX.Sort.Title"), 23);
    row("sort by import", MenuId::BrowserView, 16, base::text("CX.Sort.Date.Imported"), 30);
    row("sort by opening", MenuId::BrowserView, 17, base::text("CX.Sort.Last.Opened"), 31);
    row("ascending", MenuId::BrowserView, 19, base::text("CX.Sort.Ascending"), 33);
    row("descending", MenuId::BrowserView, 20, base::text("CX.Sort.Descending"), 34);
    row("inspector tab", MenuId::Inspector, 4, base::text("View.Show.Filter.Inspector"), 2);
}

void MenusTest::positions()
{
    QFETCH(MenuId, menu);
    QFETCH(int, position);
    QFETCH(QString, title);
    QFETCH(int, tag);
    ZNMenuManager manager;
    manager.prepareBasicMenus();
    QCOMPARE(plain(manager.item(menu, position)->text()), plain(title));
    const auto table = menuTable();
    const auto row = std::find_if(table.begin(), table.end(), [&](const MenuRow& candidate) {
        return candidate.menu == menu && candidate.position == position;
    });
    QVERIFY(row != table.end());
    QCOMPARE(row->tag, tag);
}

/// The table has no gaps: what it calls a position is one.
void MenusTest::rowsStandAtTheirPositions()
{
    ZNMenuManager manager;
    manager.prepareBasicMenus();
    for (const MenuRow& row : menuTable()) {
        QCOMPARE(manager.menu(row.menu)->actions().value(row.position), manager.item(row.menu, row.position));
    }
}

void MenusTest::shortcutsDoNotClash()
{
    QSet<QString> seen;
    for (const MenuRow& row : menuTable()) {
        if (row.shortcut == nullptr) {
            continue;
        }
        for (const QKeySequence& sequence : QKeySequence::listFromString(QString::fromLatin1(row.shortcut))) {
            QVERIFY2(!sequence.isEmpty() && sequence[0].key() != Qt::Key_unknown, row.shortcut);
            QVERIFY2(!seen.contains(sequence.toString()), row.shortcut);
            seen.insert(sequence.toString());
        }
    }
    QVERIFY(seen.contains(QStringLiteral("Ctrl+Q")));
}

void MenusTest::mnemonicsAreUniqueInTheirMenu()
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

void MenusTest::applicationRules_data()
{
    QTest::addColumn<Command>("command");
    QTest::addColumn<bool>("chooser");
    QTest::addColumn<bool>("window");
    QTest::addColumn<bool>("busy");
    QTest::addColumn<bool>("enabled");
    QTest::newRow("show") << Command::ShowMosaro << false << false << false << true;
    QTest::newRow("show beside the chooser") << Command::ShowMosaro << true << false << false << false;
    QTest::newRow("quit") << Command::Quit << false << true << false << true;
    QTest::newRow("quit while busy") << Command::Quit << false << true << true << false;
    QTest::newRow("switch while busy") << Command::SwitchToLibrary << false << true << true << false;
    QTest::newRow("preferences") << Command::ShowPreferences << false << true << false << true;
    QTest::newRow("preferences, no window") << Command::ShowPreferences << false << false << false << false;
    QTest::newRow("preferences while busy") << Command::ShowPreferences << false << true << true << false;
    QTest::newRow("about while busy") << Command::ShowAbout << false << true << true << true;
    QTest::newRow("no library") << Command::NoLibrary << false << false << false << false;
}

void MenusTest::applicationRules()
{
    QFETCH(Command, command);
    QFETCH(bool, chooser);
    QFETCH(bool, window);
    QFETCH(bool, busy);
    QTEST(validateMenuItem(command, {chooser, window, busy}), "enabled");
}

void MenusTest::itemsShowAndEnableWithTheirOwner()
{
    ZNMenuManager manager;
    manager.prepareBasicMenus();
    QAction* collection = manager.item(MenuId::File, 0);
    QAction* noLibrary = manager.item(MenuId::File, 11);
    QAction* sort = manager.item(MenuId::BrowserView, 9);
    QVERIFY(!collection->isVisible() && !sort->isVisible());
    QVERIFY(noLibrary->isVisible() || !manager.menu(MenuId::File)->isVisible());

    Recorder library;
    Recorder browser;
    manager.setupMenuItems(MenuOwner::Library, library.target());
    manager.setupMenuItems(MenuOwner::Browser, browser.target());
    QVERIFY(collection->isVisible() && collection->isEnabled());
    QVERIFY(sort->isVisible() && sort->isEnabled());
    QVERIFY(!noLibrary->isVisible());
    QVERIFY(!manager.item(MenuId::File, 1)->isVisible());
    QVERIFY(!manager.item(MenuId::View, 6)->isVisible());

    manager.setChecked(Command::SortMedia, 23, true);
    manager.removeMenuItems(MenuOwner::Library);
    manager.removeMenuItems(MenuOwner::Browser);
    QVERIFY(collection->isVisible() && !collection->isEnabled());
    QVERIFY(!sort->isEnabled() && !sort->isChecked());
    QVERIFY(noLibrary->isVisible() && !noLibrary->isEnabled());
    collection->trigger();
    QVERIFY(library.performed.isEmpty());
}

void MenusTest::openMenuAsksTheOwner()
{
    ZNMenuManager manager;
    manager.prepareBasicMenus();
    Recorder library;
    manager.setupMenuItems(MenuOwner::Library, library.target());
    library.possible = false;
    Q_EMIT manager.menu(MenuId::File)->aboutToShow();
    QVERIFY(!manager.item(MenuId::File, 0)->isEnabled());
    Q_EMIT manager.menu(MenuId::File)->aboutToHide();
    QVERIFY2(manager.item(MenuId::File, 0)->isEnabled(), "its keys must work once it is possible again");
}

void MenusTest::impossibleCommandIsNotPerformed()
{
    ZNMenuManager manager;
    manager.prepareBasicMenus();
    Recorder library;
    manager.setupMenuItems(MenuOwner::Library, library.target());
    library.possible = false;
    manager.item(MenuId::File, 2)->trigger();
    QVERIFY(library.performed.isEmpty());
    library.possible = true;
    manager.item(MenuId::File, 2)->trigger();
    manager.item(MenuId::File, 9)->trigger();
    const QList<std::pair<Command, int>> expected{{Command::AddCollectionItem, 2}, {Command::Import, 2000}};
    QCOMPARE(library.performed, expected);
}

void MenusTest::ticksFollowTheOwnerAndNotTheClick()
{
    ZNMenuManager manager;
    manager.prepareBasicMenus();
    Recorder browser;
    manager.setupMenuItems(MenuOwner::Browser, browser.target());
    manager.setChecked(Command::SortMedia, 30, true);
    manager.item(MenuId::BrowserView, 9)->trigger();
    QVERIFY(!manager.item(MenuId::BrowserView, 9)->isChecked());
    manager.item(MenuId::BrowserView, 16)->trigger();
    QVERIFY(manager.item(MenuId::BrowserView, 16)->isChecked());
    const QList<std::pair<Command, int>> expected{{Command::SortMedia, 23}, {Command::SortMedia, 30}};
    QCOMPARE(browser.performed, expected);
}

void MenusTest::titlesChangeByKey()
{
    ZNMenuManager manager;
    manager.prepareBasicMenus();
    manager.setMenuItemTitle("Basic.Show.Sidebar", Command::ToggleSidebar);
    QCOMPARE(manager.item(MenuId::View, 4)->text(), base::text("Basic.Show.Sidebar"));
    manager.setMenuItemTitle("View.Exit.Full.Screen", Command::FullScreen);
    QCOMPARE(manager.item(MenuId::View, 13)->text(), base::text("View.Exit.Full.Screen"));
}

void MenusTest::menusServeOneWindowAfterTheOther()
{
    ZNMenuManager manager;
    manager.prepareBasicMenus();
    {
        QMenuBar first;
        manager.installIn(first);
        QCOMPARE(first.actions().size(), kTopLevelMenus);
    }
    QMenuBar second;
    manager.installIn(second);
    QCOMPARE(second.actions().size(), kTopLevelMenus);
    QVERIFY(!manager.menu(MenuId::Help)->actions().isEmpty());
}

QTEST_MAIN(MenusTest)
#include "tst_menus.moc"
