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
        const QString path = u"/x/a.png"_s;
        const auto record = [&path](const QVariant& kind) {
            QVariantMap map{{MR_IMPORTED_KEY_FILE_PATH, path}};
            if (kind.isValid())
                map[MR_IMPORTED_KEY_MEDIA_KIND] = kind;
            return QVariant(map);
        };
        const std::tuple<QVariant, QString, int, bool> rows[] = {{path, path, -1, false},
                                                                 {QUrl::fromLocalFile(path), path, -1, false},
                                                                 {QUrl(u"http://x/a.png"_s), {}, -1, false},
                                                                 {record(4), path, 4, true},
                                                                 {record({}), path, -1, true},
                                                                 {record(u"web"_s), path, -1, true},
                                                                 {7, {}, -1, false},
                                                                 {QVariant(), {}, -1, false}};
        for (const auto& [value, expected, kind, isRecord] : rows) {
            const ImportItem item = ImportItem::fromVariant(value);
            QCOMPARE(item.path, expected);
            QCOMPARE(static_cast<int>(item.kind), kind);
            QCOMPARE(item.isRecord, isRecord);
        }
    }

    void filters()
    {
        const char* const pictures = "folder/.hidden.gif|folder/2.png|folder/10.png|folder/album.png";
        const std::tuple<const char*, const char*, int> rows[] = {
            {"a.png|B.JPG|a.png", "a.png|B.JPG|a.png", 0}, // in the given order, twice the same twice
            {"notes.txt|noext|nowhere.png", "", 3},
            {"link", "a.png", 0},
            {"dead.png", "", 1}, // an alias that leads nowhere
            {"folder", pictures,
             2}, // one level deep, naturally ordered, with a folder that looks like a picture
            {"folderlink", pictures, 2},
            {"Tool.app", "Tool.app/Contents/Resources/icon.png", 0}, // an application by its resources
            {"wallapp", "", 1}};                                     // any folder that ends in those letters
        for (const auto& [given, expected, skipped] : rows) {
            QCOMPARE(kept(QString::fromLatin1(given).split(u'|')).join(u'|'), QString::fromLatin1(expected));
            QVERIFY2(m_filtered.skipped.size() == size_t(skipped), given);
            for (const SkippedPath& path : m_filtered.skipped) {
                QVERIFY(!path.path.isEmpty());
                QVERIFY(path.reason.contains(u'.') && !path.reason.startsWith(u"Failure."_s));
            }
        }
    }

    void keepsRecordsAsTheyAre()
    {
        const ImportItem whole{at(u"a.png"_s), u"http://x"_s, MediaKind::Web, true};
        const ImportItem linked{at(u"link"_s), {}, MediaKind::Web, true};
        const ImportItem folder{at(u"folder"_s), {}, MediaKind::Web, true};
        const ImportItem none{{}, {}, MediaKind::Web, true};
        const auto filtered = checkDraggedFiles({whole, linked, folder, none}, m_classification, m_aliases);
        // The link's own name has no type, and a folder is no file.
        QCOMPARE(filtered.items.size(), size_t(1));
        QCOMPARE(filtered.items[0].url, whole.url);
        QCOMPARE(filtered.items[0].kind, MediaKind::Web);
        QVERIFY(filtered.items[0].isRecord);
    }
};

QTEST_GUILESS_MAIN(ImportItemTest)
#include "tst_importitem.moc"
