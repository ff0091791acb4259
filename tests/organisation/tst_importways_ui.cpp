#include "base/Notifications.h"
#include "import/ImportItem.h"
#include "organisation/SidebarWorld.h"
#include "organisation/ui/SidebarTabs.h"
#include "support/WebServer.h"

#include <QPushButton>

using namespace Qt::StringLiterals;
using namespace mosaro;

namespace {

/// The sidebar over a folder "Box" with a collection and a smart collection in it, and one of each beside it.
struct World : test::SidebarWorld {
    std::shared_ptr<store::Collections> box = add(u"Box"_s, {}, store::kTypeFolder);
    std::shared_ptr<store::Collections> inner = add(u"Inner"_s, box);
    std::shared_ptr<store::Collections> innerSmart = add(u"Inner smart"_s, box, store::kTypeSmartCollection);
    std::shared_ptr<store::Collections> shop = add(u"Shop"_s);
    std::shared_ptr<store::Collections> smart = add(u"Smart"_s, {}, store::kTypeSmartCollection);

    World() { open({u"0"_s, u"16"_s, box->collectionID()}); }

    /// Selects the rows "A|B"; none for an empty text.
    void select(const QString& titles) const
    {
        outline().selectionModel()->clearSelection();
        for (const QString& title : titles.split(u'|', Qt::SkipEmptyParts))
            outline().selectionModel()->select(row(title), QItemSelectionModel::Select);
    }
    static QString picture(const QString& folder, const QString& name)
    {
        test::writeFile(folder + u'/' + name, "picture");
        return folder + u'/' + name;
    }
    QString file(const QString& name) { return picture(library.folder(), name); }
    QString received(const QString& name) { return picture(library.manager().downloadDirectory(), name); }

    void pasteFile()
    {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(file(u"a.png"_s))});
        view->paste(data);
    }

    /// What was imported since the last call, as "title in Collection in Folder, kind, address"; "" when no
    /// import was started.
    QString imported()
    {
        if (!QTest::qWaitFor([this] { return !view->isBusy(); }, 20000))
            return u"it never ended"_s;
        QStringList all;
        const auto fetched = library.context().fetch<store::Media>({});
        for (const auto& media : fetched.value()) {
            if (!m_known.contains(media->rowId())) {
                m_known.insert(media->rowId());
                const auto owner = media->collections();
                const bool isInBox = owner->collectionPID() == box->collectionID();
                all.append(media->mediaTitle() + u" in "_s + owner->title() +
                           (isInBox ? u" in Box"_s : QString()) + u", %1"_s.arg(media->mediaKind()) +
                           (media->mediaWeburl().isEmpty() ? QString() : u", "_s + media->mediaWeburl()));
            }
        }
        return all.join(u"; "_s);
    }
    QStringList downloads() { return QDir(library.manager().downloadDirectory()).entryList(QDir::Files); }

private:
    QSet<store::RowId> m_known;
};

QVariantMap capture(const QString& path)
{
    return importing::ImportItem{path, u"http://host/a"_s, importing::MediaKind::Screen, true}.toRecord();
}

} // namespace

class TestImportWays : public test::WindowTest {
    Q_OBJECT

private Q_SLOTS:
    /// Captures make a collection where none can be meant; what is pasted is refused there with a beep.
    void targetsOfCapturesAndOfPastedFiles()
    {
        const std::tuple<QString, QString, bool> cases[] = {
            {u"Shop"_s, u"Shop"_s, true},
            {u"Inner"_s, u"Inner in Box"_s, true},
            {u"Box"_s, u"Untitled Collection in Box"_s, true},
            {u"Inner smart"_s, u"Untitled Collection in Box"_s, false},
            {u"Smart"_s, u"Untitled Collection"_s, false},
            {u"All"_s, u"Untitled Collection"_s, false},
            {QString(), u"Untitled Collection"_s, true},
            {u"Shop|Smart"_s, u"Untitled Collection"_s, true},
        };
        for (const auto& [selected, target, pastes] : cases) {
            World capturing;
            bool askedForMode = false;
            capturing.utilities.bus().observe(base::MOSARO_NOTI_REQUEST_IMPORT_MODE, capturing.view.get(),
                                              [&](const QVariant&) { askedForMode = true; });
            capturing.select(selected);
            QCOMPARE(capturing.selected(), selected);
            capturing.post(base::MOSARO_NOTI_CAPTURED_MEDIA_ITEM, capture(capturing.received(u"snap.png"_s)));
            QCOMPARE(selected + capturing.imported(),
                     selected + u"snap in %1, 4, http://host/a"_s.arg(target));
            QVERIFY(askedForMode);
            QCOMPARE(capturing.downloads(), QStringList());

            World pasting;
            pasting.select(selected);
            pasting.pasteFile();
            QCOMPARE(selected + pasting.imported(),
                     selected + (pastes ? u"a in %1, 15"_s.arg(target) : QString()));
            QCOMPARE(pasting.library.prompts().beeps, pastes ? 0 : 1);
        }
    }

    void nothingIsPastedIntoATreeThatIsNotOnShow()
    {
        World world;
        world.select(u"Shop"_s);
        world.view->changeCollection(organisation::kTagsTab);
        world.pasteFile();
        QCOMPARE(world.imported(), QString());
        QCOMPARE(world.library.prompts().beeps, 1);
    }

    void namedCollectionIsShownAndImportedInto()
    {
        World world;
        const auto request = [&](const QString& id, const QString& name, const QString& file) {
            world.post(
                base::MOSARO_NOTI_COLLECTION_SOURCE_CREATED,
                QVariantMap{{base::MOSARO_NOTI_KEY_COLLECTION_ITEM, QVariantMap{{u"ID"_s, id}}},
                            {base::MOSARO_NOTI_KEY_COLLECTION_NAME, name},
                            {base::MOSARO_NOTI_KEY_COLLECTION_IMPORT_ITEMS, QVariantList{world.file(file)}}});
            return world.imported();
        };
        QStringList changed;
        world.utilities.bus().observe(base::MOSARO_NOTI_COLLECTION_SOURCE_CHANGED, world.view.get(),
                                      [&](const QVariant& id) { changed.append(id.toString()); });
        world.outline().collapse(world.row(u"Box"_s));
        QCOMPARE(request(world.inner->collectionID(), {}, u"a.png"_s), u"a in Inner in Box, 15"_s);
        QCOMPARE(world.selected(), u"Inner"_s);
        QVERIFY(!kit::Sheet::isAttachedTo(*world.view));
        QCOMPARE(request(world.shop->collectionID(), u"Unused"_s, u"b.png"_s), u"b in Shop, 15"_s);
        QVERIFY(!world.outline().isExpanded(world.row(u"Box"_s)));
        QCOMPARE(request(world.box->collectionID(), u"Fresh"_s, u"c.png"_s), u"c in Fresh in Box, 15"_s);
        QVERIFY(!changed.last().isEmpty());
        for (const QString& id : {world.box->collectionID(), world.smart->collectionID(), u"1"_s, u"none"_s})
            QCOMPARE(request(id, {}, u"d.png"_s), QString());
    }

    void pictureOfAWebPage()
    {
        const std::tuple<QString, bool, QString> cases[] = {
            {u"Shop"_s, true, u"Shop"_s},
            {u"Box"_s, true, u"Untitled Collection in Box"_s},
            {QString(), true, u"Untitled Collection"_s},
            {u"Smart"_s, false, QString()},
            {u"All"_s, false, QString()},
        };
        const QString address = u"data:image/png;base64,iVBORw0KGgo="_s;
        for (const auto& [title, accepted, target] : cases) {
            World world;
            world.select(u"Inner"_s);
            QMimeData data;
            data.setUrls({QUrl(address)});
            QCOMPARE(world.drop(data, title), accepted);
            QCOMPARE(kit::Sheet::isAttachedTo(*world.view), accepted);
            QTRY_VERIFY(!kit::Sheet::isAttachedTo(*world.view));
            const QString imported = world.imported();
            QCOMPARE(title + imported.mid(imported.indexOf(u" in "_s)),
                     title + (accepted ? u" in %1, 7, %2"_s.arg(target, address) : QString()));
            QCOMPARE(world.downloads(), QStringList());
        }
    }

    /// The download waits for a server that never answers.
    void downloadCanBeStopped()
    {
        test::WebServer server;
        World world;
        QMimeData data;
        data.setUrls({server.url(u"/a.png"_s)});
        QVERIFY(world.drop(data, u"Shop"_s));
        auto* stop = world.view->findChild<QPushButton*>(u"stopProgress"_s);
        QVERIFY(stop && stop->isVisible() && !stop->toolTip().isEmpty());
        QVERIFY(!world.drop(data, u"Box"_s)); // Busy.
        QTRY_COMPARE(server.asked, 1);
        stop->click();
        QTRY_VERIFY(!kit::Sheet::isAttachedTo(*world.view));
        QCOMPARE(world.imported(), QString());
        QVERIFY(world.drop(data, u"Shop"_s));
        world.view.reset(); // As when the library closes.
        QCOMPARE(world.downloads(), QStringList());
    }

    void pastedPicture()
    {
        World world;
        world.select(u"Box"_s);
        QImage image(3, 2, QImage::Format_ARGB32);
        image.fill(Qt::green);
        QMimeData data;
        data.setImageData(image);
        world.view->paste(data);
        QString imported;
        QVERIFY(QTest::qWaitFor([&] { return !(imported = world.imported()).isEmpty(); }));
        QVERIFY2(imported.startsWith(u"Clipboard "_s) &&
                     imported.endsWith(u" in Untitled Collection in Box, 15"_s),
                 qPrintable(imported));
        QCOMPARE(world.library.prompts().beeps, 0);
        world.view->paste(QMimeData());
        QCOMPARE(world.library.prompts().beeps, 1);
    }

    /// A received picture without a target is taken away again, another file never.
    void receivedWithoutATarget()
    {
        World world;
        world.select(u"Smart"_s);
        const QString own = world.file(u"own.png"_s);
        const QString downloaded = world.received(u"downloaded.png"_s);
        for (const QString& path : {own, downloaded})
            world.post(base::MOSARO_NOTI_REQUEST_IMORT_URL_IMAGE, QVariantList{capture(path)});
        QCOMPARE(world.imported(), QString());
        QVERIFY(QFile::exists(own));
        QCOMPARE(world.downloads(), QStringList());
        world.select(u"Shop"_s);
        world.post(base::MOSARO_NOTI_REQUEST_IMORT_URL_IMAGE,
                   QVariantList{capture(world.received(u"next.png"_s))});
        QCOMPARE(world.imported(), u"next in Shop, 4, http://host/a"_s);
    }
};

QTEST_MAIN(TestImportWays)
#include "tst_importways_ui.moc"
