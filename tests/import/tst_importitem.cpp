#include "import/ImportFixture.h"

using namespace mosaro;
using namespace Qt::StringLiterals;
using namespace mosaro::importing;

class ImportItemTest : public QObject {
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    test::FakeTypes m_types;
    test::FakeThumbnailers m_thumbnailers;
    test::FakeAliases m_aliases;
    MediaClassification m_classification{m_types, m_thumbnailers};

    QString at(const QString& name) const { return m_dir.path() + u'/' + name; }
    /// Names below the test's folder of what is kept, in order.
    QStringList kept(const QStringList& names)
    {
        QStringList paths;
        for (const QString& name : names)
            paths.append(at(name));
        m_filtered = checkDraggedFiles(ImportItem::fromPaths(paths), m_classification, m_aliases);
        QStringList result;
        for (const ImportItem& item : m_filtered.items)
            result.append(item.path.mid(m_dir.path().size() + 1));
        return result;
    }
    FilteredItems m_filtered;

private Q_SLOTS:
    void initTestCase()
    {
        base::installTexts();
        for (const char* name :
             {"a.png", "B.JPG", "notes.txt", "noext", "folder/10.png", "folder/2.png", "folder/readme.txt",
              "folder/.hidden.gif", "folder/sub/deep.png", "folder/album.png/inside.png",
              "Tool.app/Contents/Resources/icon.png", "Tool.app/outside.png", "wallapp/inside.png"}) {
            test::writeFile(at(QLatin1String(name)), "x");
        }
        QVERIFY(QFile::link(at(u"a.png"_s), at(u"link"_s)));
        QVERIFY(QFile::link(at(u"gone.png"_s), at(u"dead.png"_s)));
        QVERIFY(QFile::link(at(u"folder"_s), at(u"folderlink"_s)));
    }

    void takesVariantsOffTheBus()
    {
        struct Row {
            QVariant value;
            QString path;
            int kind;
            bool isRecord;
        };
        const QString path = u"/x/a.png"_s;
        const auto record = [&path](const QVariant& kind) {
            QVariantMap map{{MR_IMPORTED_KEY_FILE_PATH, path}};
            if (kind.isValid())
                map[MR_IMPORTED_KEY_MEDIA_KIND] = kind;
            return QVariant(map);
        };
        for (const Row& row : {Row{path, path, -1, false},
                               {QUrl::fromLocalFile(path), path, -1, false},
                               {QUrl(u"http://x/a.png"_s), {}, -1, false},
                               {record(4), path, 4, true},
                               {record({}), path, -1, true},
                               {record(u"web"_s), path, -1, true},
                               {7, {}, -1, false},
                               {{}, {}, -1, false}}) {
            const ImportItem item = ImportItem::fromVariant(row.value);
            QCOMPARE(item.path, row.path);
            QCOMPARE(static_cast<int>(item.kind), row.kind);
            QCOMPARE(item.isRecord, row.isRecord);
        }
    }

    void filters_data()
    {
        QTest::addColumn<QStringList>("given");
        QTest::addColumn<QStringList>("expected");
        QTest::addColumn<int>("skipped");
        const auto row = [](const char* name, const char* given, const char* expected, int skipped) {
            QTest::newRow(name) << QString::fromLatin1(given).split(u'|', Qt::SkipEmptyParts)
                                << QString::fromLatin1(expected).split(u'|', Qt::SkipEmptyParts) << skipped;
        };
        row("files in the given order, twice the same twice", "a.png|B.JPG|a.png", "a.png|B.JPG|a.png", 0);
        row("unknown types and missing files", "notes.txt|noext|nowhere.png", "", 3);
        row("an alias by its target", "link", "a.png", 0);
        row("an alias that leads nowhere", "dead.png", "", 1);
        row("a folder one level deep, naturally ordered, with a folder that looks like a picture", "folder",
            "folder/.hidden.gif|folder/2.png|folder/10.png|folder/album.png", 2);
        row("an alias of a folder", "folderlink",
            "folder/.hidden.gif|folder/2.png|folder/10.png|folder/album.png", 2);
        row("an application by its resources", "Tool.app", "Tool.app/Contents/Resources/icon.png", 0);
        row("any folder that ends in those letters", "wallapp", "", 1);
    }
    void filters()
    {
        QFETCH(QStringList, given);
        QTEST(kept(given), "expected");
        QFETCH(int, skipped);
        QCOMPARE(static_cast<int>(m_filtered.skipped.size()), skipped);
        for (const SkippedPath& path : m_filtered.skipped) {
            QVERIFY(!path.path.isEmpty());
            QVERIFY(path.reason.contains(u'.') && !path.reason.startsWith(u"Failure."_s));
        }
    }

    void keepsRecordsAsTheyAre()
    {
        const ImportItem whole{at(u"a.png"_s), u"http://x"_s, MediaKind::Web, true};
        const ImportItem linked{at(u"link"_s), {}, MediaKind::Web, true};
        const ImportItem folder{at(u"folder"_s), {}, MediaKind::Web, true};
        const ImportItem none{{}, {}, MediaKind::Web, true};
        const auto filtered = checkDraggedFiles({whole, linked, folder, none}, m_classification, m_aliases);
        QCOMPARE(filtered.items.size(),
                 size_t(1)); // The link's own name has no type, and a folder is no file.
        QCOMPARE(filtered.items[0].url, whole.url);
        QCOMPARE(filtered.items[0].kind, MediaKind::Web);
        QVERIFY(filtered.items[0].isRecord);
    }
};

QTEST_GUILESS_MAIN(ImportItemTest)
#include "tst_importitem.moc"
