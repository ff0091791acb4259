#include "base/Notifications.h"
#include "base/PreferenceKeys.h"
#include "base/Text.h"
#include "base/ZNUtilities.h"
#include "import/Analysis.h"
#include "import/MediaClassification.h"
#include "kit/Look.h"
#include "kit/Sheet.h"
#include "organisation/ui/CollectionOutline.h"
#include "organisation/ui/CollectionTreeModel.h"
#include "organisation/ui/MRLibraryView.h"
#include "support/TemporaryLibrary.h"

#include <QDragMoveEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QSignalSpy>
#include <QtTest>

using namespace mosaro;
using organisation::CollectionNode;
using organisation::CollectionOutline;
using organisation::CollectionTreeModel;
using organisation::MRLibraryView;

namespace {

importing::AnalysisResult pictureFromAnyFile(const importing::AnalysisRequest& request)
{
    importing::AnalysisResult result;
    result.type = request.type;
    result.kind = importing::MediaKind::Other;
    result.preview = "preview";
    return result;
}

/// A library with its sidebar, which can be closed and opened again as the window does it.
struct World {
    test::TemporaryLibrary library;
    test::FakeTypes types;
    test::FakeThumbnailers thumbnailers;
    importing::MediaClassification classification{types, thumbnailers};
    platform::Platform platform;
    base::ZNUtilities utilities;
    std::unique_ptr<MRLibraryView> view;
    bool busy = false;

    World()
    {
        library.defaults().initialize();
        types.mimeTypes.insert(QStringLiteral("png"), QStringLiteral("image/png"));
        platform.aliases = std::make_unique<test::FakeAliases>();
        platform.fileIndex = std::make_unique<test::FakeFileIndex>();
        platform.bookmarks = std::make_unique<test::FakeBookmarks>();
    }

    void open()
    {
        view = std::make_unique<MRLibraryView>(organisation::SidebarEnvironment{
            library.manager(), library.defaults(), library.prompts(), platform, utilities, classification,
            [this] { return busy; }, [] { return true; }, [] {}, pictureFromAnyFile});
        view->resize(231, 700);
        view->readLibrary();
        view->show();
        view->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(view.get()));
    }

    void reopen()
    {
        view.reset();
        QVERIFY(library.reopen());
        open();
    }

    CollectionOutline& outline() const { return *view->findChild<CollectionOutline*>(); }

    /// The visible row with a title; an invalid index when there is none.
    QModelIndex row(const QString& title) const
    {
        const auto& model = *outline().model();
        QModelIndex index = model.index(0, 0);
        while (index.isValid() && index.data().toString() != title) {
            index = outline().indexBelow(index);
        }
        return index;
    }

    void click(const QString& title, Qt::KeyboardModifiers modifiers = {}) const
    {
        const QRect rect = outline().visualRect(row(title));
        QTest::mouseClick(outline().viewport(), Qt::LeftButton, modifiers, rect.center());
    }

    QStringList selectedTitles() const
    {
        QStringList titles;
        for (const auto& element : view->selectedCollections()) {
            titles.append(element.title);
        }
        return titles;
    }

    QLineEdit* editor() const { return outline().viewport()->findChild<QLineEdit*>(); }
};

QString words(const char* text)
{
    return QString::fromLatin1(text);
}

} // namespace

class TestLibraryView : public QObject {
    Q_OBJECT

private:
    /// Drops files at a point of the tree, as the desktop would; whether the place accepted them.
    static bool dropFiles(const World& world, const QPoint& position, const QStringList& paths)
    {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString& path : paths) {
            urls.append(QUrl::fromLocalFile(path));
        }
        data.setUrls(urls);
        QWidget* viewport = world.outline().viewport();
        QDragEnterEvent enter(position, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(viewport, &enter);
        QDragMoveEvent move(position, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(viewport, &move);
        const bool accepted = move.isAccepted();
        if (accepted) {
            QDropEvent drop(position, Qt::CopyAction, &data, Qt::LeftButton, {});
            QCoreApplication::sendEvent(viewport, &drop);
        } else {
            QDragLeaveEvent leave;
            QCoreApplication::sendEvent(viewport, &leave);
        }
        return accepted;
    }

private Q_SLOTS:
    void initTestCase()
    {
        base::installTexts();
        kit::installLook(*qApp);
    }

    void emptyLibraryShowsItsFirstGroup()
    {
        World world;
        world.open();
        QVERIFY(world.row(base::text("Lib.All")).isValid());
        QVERIFY(!world.row(base::text("Lib.Screen")).isValid());
        QCOMPARE(world.selectedTitles(), QStringList());
        QCOMPARE(world.library.state().expandedCollections(), QStringList(words("0")));
    }

    void newCollectionOpensItsNameForEditing()
    {
        World world;
        world.open();
        QVERIFY(world.view->validateCommand(0));
        world.view->addCollectionItem(0);
        QLineEdit* field = world.editor();
        QVERIFY(field);
        QCOMPARE(field->text(), base::text("Basic.Untitled.Collection"));
        QCOMPARE(field->selectedText(), field->text());
        QTest::keyClicks(field, words("Clients"));
        QTest::keyClick(field, Qt::Key_Return);
        QTRY_VERIFY(world.row(words("Clients")).isValid());
        QCOMPARE(world.selectedTitles(), QStringList(words("Clients")));

        world.reopen();
        QVERIFY(world.row(words("Clients")).isValid());
        QCOMPARE(world.selectedTitles(), QStringList(words("Clients")));
    }

    void renameByKeyboard_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("endKey");
        QTest::addColumn<QString>("title");

        QTest::newRow("taken over") << words("B") << int(Qt::Key_Return) << words("B");
        QTest::newRow("escape") << words("B") << int(Qt::Key_Escape) << words("A");
        QTest::newRow("one blank") << words(" ") << int(Qt::Key_Return) << words("A");
        QTest::newRow("empty") << QString() << int(Qt::Key_Return) << words("A");
        QTest::newRow("tab edits no other row") << words("B") << int(Qt::Key_Tab) << words("B");
    }

    void renameByKeyboard()
    {
        QFETCH(QString, typed);
        QFETCH(int, endKey);
        QFETCH(QString, title);
        QTest::failOnWarning(QRegularExpression(words("[Ee]dit")));
        World world;
        const auto record = world.library.addCollection(words("A"));
        world.library.addCollection(words("Z"));
        world.library.state().addExpandedCollection(words("16"));
        world.open();
        world.click(words("A"));
        QTest::keyClick(&world.outline(), Qt::Key_F2);
        QLineEdit* field = world.editor();
        QVERIFY(field);
        field->clear();
        QTest::keyClicks(field, typed);
        QTest::keyClick(field, Qt::Key(endKey));
        QTRY_VERIFY(!world.editor());
        QCOMPARE(record->title(), title);
        QVERIFY(world.row(title).isValid());
        QCOMPARE(world.selectedTitles(), QStringList(title));
        QTRY_VERIFY(world.outline().hasFocus());
    }

    void commandsFollowTheSelection()
    {
        World world;
        world.library.addCollection(words("A"));
        world.library.addCollection(words("B"));
        world.library.state().addExpandedCollection(words("16"));
        world.library.state().addExpandedCollection(words("0"));
        world.open();
        QVERIFY(world.view->validateCommand(0) && !world.view->validateCommand(2000));
        world.click(words("A"));
        QVERIFY(world.view->validateCommand(2) && world.view->validateCommand(2000));
        world.busy = true;
        QVERIFY(!world.view->validateCommand(0));
        world.busy = false;
        world.click(words("B"), Qt::ControlModifier);
        QCOMPARE(world.selectedTitles(), QStringList({words("A"), words("B")}));
        QVERIFY(!world.view->validateCommand(0));
        world.click(base::text("Lib.All"), Qt::ControlModifier);
        QCOMPARE(world.selectedTitles(), QStringList({words("A"), words("B")}));
        world.click(base::text("Lib.All"));
        QCOMPARE(world.selectedTitles(), QStringList(base::text("Lib.All")));
        QVERIFY(!world.view->validateCommand(0));
        QTest::mouseClick(world.outline().viewport(), Qt::LeftButton, {},
                          QPoint(20, world.outline().viewport()->height() - 5));
        QCOMPARE(world.selectedTitles(), QStringList());
    }

    void keyboardPassesOverHeadings()
    {
        World world;
        world.library.addCollection(words("A"));
        world.library.state().addExpandedCollection(words("0"));
        world.library.state().addExpandedCollection(words("16"));
        world.open();
        world.click(base::text("Lib.Recent"));
        QTest::keyClick(&world.outline(), Qt::Key_Down);
        QCOMPARE(world.selectedTitles(), QStringList(words("A")));
        QTest::keyClick(&world.outline(), Qt::Key_Up);
        QTest::keyClick(&world.outline(), Qt::Key_Up);
        QTest::keyClick(&world.outline(), Qt::Key_Up);
        QCOMPARE(world.selectedTitles(), QStringList(base::text("Lib.All")));
        world.outline().collapse(world.row(base::text("Lib.Your.Collections").toUpper()));
        QTest::keyClick(&world.outline(), Qt::Key_End);
        QCOMPARE(world.selectedTitles(), QStringList(base::text("Lib.Recent")));
        QTest::keyClick(&world.outline(), Qt::Key_Home);
        QCOMPARE(world.selectedTitles(), QStringList(base::text("Lib.All")));
    }

    void selectionReachesTheBrowserOnce()
    {
        World world;
        const auto folder = world.library.addCollection(words("F"), store::kTypeFolder);
        const auto inside =
            world.library.addCollection(words("In"), store::kTypeCollection, folder->collectionID());
        world.library.addMedia(words("one"), inside);
        world.library.addMedia(words("two"), inside);
        world.library.state().addExpandedCollection(words("16"));
        world.open();
        QSignalSpy changes(world.view.get(), &MRLibraryView::selectionChanged);
        world.click(words("F"));
        QCOMPARE(changes.size(), 1);
        QCOMPARE(world.view->selectedObjects().ids.size(), size_t(2));
        QCOMPARE(world.view->selectedObjects().totalFileSize, 2000);

        world.view->findCollectionItem(inside->collectionID());
        QCOMPARE(changes.size(), 2);
        QCOMPARE(world.selectedTitles(), QStringList(words("In")));
        QCOMPARE(world.view->selectedPath(), QStringList(words("F")));
        QVERIFY(world.library.state().expandedCollections().contains(folder->collectionID()));

        world.library.addMedia(words("three"), inside);
        world.utilities.postNotification(base::MOSARO_NOTI_RELOAD_CURRENT_SELECTION);
        QCOMPARE(changes.size(), 3);
        QCOMPARE(world.view->selectedObjects().ids.size(), size_t(3));
        world.view->readLibrary();
        QCOMPARE(changes.size(), 4);
        QCOMPARE(world.selectedTitles(), QStringList(words("In")));
    }

    void collapsingSelectsTheParent()
    {
        World world;
        const auto folder = world.library.addCollection(words("F"), store::kTypeFolder);
        world.library.addCollection(words("In"), store::kTypeCollection, folder->collectionID());
        world.library.state().addExpandedCollection(words("16"));
        world.library.state().addExpandedCollection(folder->collectionID());
        world.open();
        world.click(words("In"));
        world.outline().collapse(world.row(words("F")));
        QCOMPARE(world.selectedTitles(), QStringList(words("F")));
        QCOMPARE(world.library.state().expandedCollections(), QStringList(words("16")));
        world.outline().collapse(world.row(base::text("Lib.Your.Collections").toUpper()));
        QCOMPARE(world.selectedTitles(), QStringList());
        QCOMPARE(world.library.state().lastSelectedCollections(), QStringList());
    }

    void collapsingHidesWhatTookTheSelectionOver()
    {
        World world;
        const auto outer = world.library.addCollection(words("Outer"), store::kTypeFolder);
        const auto inner =
            world.library.addCollection(words("Inner"), store::kTypeFolder, outer->collectionID());
        world.library.addCollection(words("In"), store::kTypeCollection, inner->collectionID());
        for (const QString& id : {words("16"), outer->collectionID(), inner->collectionID()}) {
            world.library.state().addExpandedCollection(id);
        }
        world.open();
        world.click(words("In"));
        world.outline().collapse(world.row(words("Outer")));
        QVERIFY(!world.row(words("Inner")).isValid());
        QCOMPARE(world.selectedTitles(), QStringList());
        QCOMPARE(world.outline().currentIndex(), world.row(words("Outer")));
    }

    void expansionAndSelectionSurvive()
    {
        World world;
        const auto folder = world.library.addCollection(words("F"), store::kTypeFolder);
        world.library.addCollection(words("In"), store::kTypeCollection, folder->collectionID());
        world.library.addCollection(words("Top"));
        world.library.state().addExpandedCollection(words("16"));
        world.library.state().addExpandedCollection(words("gone"));
        world.open();
        QVERIFY(!world.library.state().expandedCollections().contains(words("gone")));
        world.outline().expand(world.row(words("F")));
        world.click(words("In"));
        world.click(words("Top"), Qt::ControlModifier);
        world.reopen();
        QCOMPARE(world.selectedTitles(), QStringList({words("In"), words("Top")}));
        QVERIFY(!world.row(base::text("Lib.All")).isValid());

        for (const QString& id : world.library.state().expandedCollections()) {
            world.library.state().removeExpandedCollection(id);
        }
        world.reopen();
        QCOMPARE(world.selectedTitles(), QStringList());
    }

    void recentDaysChange()
    {
        World world;
        world.library.state().addExpandedCollection(words("0"));
        world.open();
        QSignalSpy changes(world.view.get(), &MRLibraryView::selectionChanged);
        world.utilities.postNotification(base::MOSARO_NOTI_RECENT_DAYS_CHANGED, 3);
        QCOMPARE(changes.size(), 0);
        world.click(base::text("Lib.Recent"));
        world.utilities.postNotification(base::MOSARO_NOTI_RECENT_DAYS_CHANGED, 3);
        QCOMPARE(changes.size(), 2);
        world.utilities.postNotification(base::MOSARO_NOTI_RECENT_DAYS_CHANGED);
        QCOMPARE(changes.size(), 2);
    }

    void droppedFiles_data()
    {
        QTest::addColumn<QString>("onto");
        QTest::addColumn<bool>("accepted");
        QTest::addColumn<QString>("selected");

        QTest::newRow("collection") << words("C") << true << words("C");
        QTest::newRow("folder") << words("F") << true << words("Holiday");
        QTest::newRow("empty area") << QString() << true << words("Holiday (2)");
        QTest::newRow("smart collection") << words("S") << false << QString();
        QTest::newRow("system node") << words("All") << false << QString();
        QTest::newRow("heading") << words("LIBRARY") << false << QString();
    }

    void droppedFiles()
    {
        QFETCH(QString, onto);
        QFETCH(bool, accepted);
        QFETCH(QString, selected);
        World world;
        world.library.addCollection(words("C"));
        world.library.addCollection(words("F"), store::kTypeFolder);
        world.library.addCollection(words("S"), store::kTypeSmartCollection);
        world.library.addCollection(words("Holiday plans"));
        world.library.state().addExpandedCollection(words("0"));
        world.library.state().addExpandedCollection(words("16"));
        world.open();
        const QString folder = world.library.folder(words("Holiday"));
        test::writeFile(folder + words("/a.png"), "\x89PNG");

        const QRect place = world.outline().visualRect(world.row(onto));
        const QPoint position = place.isValid() ? place.center() : QPoint(20, world.outline().height() - 5);
        QSignalSpy changes(world.view.get(), &MRLibraryView::selectionChanged);
        QCOMPARE(dropFiles(world, position, {folder}), accepted);
        QCOMPARE(world.view->isBusy(), accepted);
        if (!accepted) {
            return;
        }
        QVERIFY(kit::Sheet::isAttachedTo(*world.view));
        QVERIFY(!dropFiles(world, position, {folder}));
        QTRY_VERIFY(!world.view->isBusy());
        QVERIFY(!kit::Sheet::isAttachedTo(*world.view));
        QCOMPARE(world.selectedTitles(), QStringList(selected));
        QCOMPARE(world.view->selectedObjects().ids.size(), size_t(1));
    }

    void requestsToImport()
    {
        World world;
        world.library.addCollection(words("C"));
        world.library.addCollection(words("D"));
        world.library.state().addExpandedCollection(words("16"));
        world.open();
        const QString file = world.library.folder() + words("/a.png");
        test::writeFile(file, "\x89PNG");

        world.utilities.postNotification(base::MOSARO_NOTI_REQUEST_IMPORT_DRAGGED_FILE, QStringList(file));
        world.utilities.postNotification(base::MOSARO_NOTI_REQUEST_SHOW_IMPORT_BOX);
        QVERIFY(!world.view->isBusy());
        QVERIFY(world.library.prompts().openPanels.isEmpty());

        world.click(words("C"));
        world.utilities.postNotification(base::MOSARO_NOTI_REQUEST_IMPORT_DRAGGED_FILE, file);
        QVERIFY(!world.view->isBusy());
        world.utilities.postNotification(base::MOSARO_NOTI_REQUEST_IMPORT_DRAGGED_FILE, QStringList(file));
        QVERIFY(world.view->isBusy());
        QTRY_VERIFY(!world.view->isBusy());

        world.library.prompts().openAnswers.append(QStringList({file, file}));
        world.utilities.postNotification(base::MOSARO_NOTI_REQUEST_SHOW_IMPORT_BOX);
        QCOMPARE(world.library.prompts().openPanels.size(), 1);
        QCOMPARE(world.library.prompts().openPanels.first().title, base::text("Message.Import", words("C")));
        QTRY_VERIFY(!world.view->isBusy());
        QCOMPARE(world.view->selectedObjects().ids.size(), size_t(2));

        world.click(words("D"), Qt::ControlModifier);
        world.utilities.postNotification(base::MOSARO_NOTI_REQUEST_SHOW_IMPORT_BOX);
        QCOMPARE(world.library.prompts().openPanels.size(), 1);
    }
};

QTEST_MAIN(TestLibraryView)
#include "tst_libraryview_ui.moc"
