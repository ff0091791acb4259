#include "import/EmbeddedPictures.h"
#include "import/ImageOperations.h"
#include "import/RenderableDocuments.h"
#include "import/RendererTest.h"
#include "platform/linux/DesktopThumbnailers.h"
#include "support/Bytes.h"
#include "support/FakePlatform.h"
#include "support/Files.h"

#include <QBuffer>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <zip.h>

using namespace mosaro;
using namespace Qt::StringLiterals;
using namespace mosaro::importing;

namespace {

QByteArray bytesOf(QSize size, const char* format = "png")
{
    return test::encoded(test::plain(size, Qt::red), format);
}

struct Entry {
    const char* name;
    QByteArray bytes;
};

void writeZip(const QString& path, const std::vector<Entry>& entries)
{
    QFile::remove(path);
    zip_t* archive = zip_open(QFile::encodeName(path).constData(), ZIP_CREATE, nullptr);
    for (const Entry& entry : entries) {
        zip_source_t* source = zip_source_buffer(archive, entry.bytes.constData(),
                                                 static_cast<zip_uint64_t>(entry.bytes.size()), 0);
        zip_file_add(archive, entry.name, source, ZIP_FL_OVERWRITE);
    }
    if (zip_close(archive) != 0)
        qFatal("cannot write the archive");
}

constexpr const char* kNamed = "\"the \"\"Preview\"";

void writeDatabase(const QString& path, const std::string& table, const std::vector<Entry>& rows)
{
    QFile::remove(path);
    SQLite::Database database(path.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    database.exec("CREATE VIEW trap AS SELECT load_extension('x') AS preview");
    for (const std::string name : {"layers", kNamed})
        database.exec("CREATE TABLE " + name + " (name TEXT, data BLOB)");
    SQLite::Statement insert(database, "INSERT INTO " + table + " VALUES (?, ?)");
    for (const Entry& row : rows) {
        insert.bind(1, row.name);
        insert.bind(2, row.bytes.constData(), int(row.bytes.size()));
        insert.exec();
        insert.reset();
    }
}

std::optional<EmbeddedPicture> largestIn(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return largestEmbeddedPicture(buffer);
}

class tst_DesignDocuments : public RendererTest {
    Q_OBJECT

private Q_SLOTS:
    void sizes()
    {
        using T = DocumentType;
        struct Row {
            T type;
            QSize carried;
            QSize side;
            const char* suffix;
            bool fills;
            QSize preview = kPreviewBox;
        };
        for (const Row& row : {Row{T::Sketch, {1000, 500}, {512, 256}, "_sketch.png", true},
                               {T::Sketch, {1000, 390}, {512, 200}, "_sketch.png", false},
                               {T::AffinityDesigner, {3000, 3000}, {1024, 1024}, "_afdesign.png", true},
                               {T::AffinityPhoto, {461, 201}, {461, 201}, "_afphoto.png", true},
                               {T::IDraw, {461, 200}, {461, 200}, "_idraw.png", false},
                               {T::Pixelmator, {133, 10}, {133, 10}, "_pxm.png", false},
                               {T::Pixelmator, {132, 132}, {132, 132}, "_pxm.png", true, {132, 132}},
                               {T::Acorn, {2000, 2000}, {256, 256}, "_acorn.png", false}}) {
            const Drawn document = drawn(row.type, "head" + bytesOf(row.carried) + "tail");
            QCOMPARE(document.shown.size(), row.preview);
            QCOMPARE(document.centre(), QColor(Qt::red));
            QCOMPARE(document.shown.pixelColor(0, 0).alpha() == 255, row.fills);
            QCOMPARE(document.side.size(), row.side);
            QCOMPARE(document.sideFileSuffix, QLatin1String(row.suffix));
            QCOMPARE(document.kind, MediaKind::Other);
        }
    }

    void zips()
    {
        const QByteArray large = bytesOf({300, 300});
        const QByteArray small = bytesOf({200, 150}, "jpg");
        const std::pair<std::vector<Entry>, QSize> rows[] = {
            {{{"previews/preview.png", large}, {"QuickLook/a.jpg", small}}, {300, 300}},
            {{{"Thumbnail.JPG", small}, {"images/photo.png", large}}, {200, 150}},
            {{{"preview.png", large.chopped(1)}, {"preview2", small}}, {200, 150}},
            {{{"preview.png", "x" + large}}, {}},
            {{{"preview.png", QByteArray(100 << 20, '\0')}}, {}},
            {{{"images/photo.png", large}, {"previews/preview.txt", "no picture"}}, {}}};
        for (const auto& [entries, found] : rows) {
            writeZip(file(), entries);
            expect(found);
        }
    }

    void zipsThatLie()
    {
        writeZip(file(), {{"preview.png", bytesOf({300, 300})}});
        const QByteArray honest = test::fileContents(file());
        const qsizetype end = honest.lastIndexOf("PK\5\6");
        QByteArray many = honest;
        many.replace(end + 8, 4, "\xff\xff\xff\xff");
        for (const QByteArray& bytes : {many, honest.left(end), honest.left(200), honest + "PK\5\6"}) {
            test::writeFile(file(), bytes);
            expect({});
        }
    }

    void databases()
    {
        const QByteArray large = bytesOf({300, 300}, "bmp"); // no format that counts
        const QByteArray noisy = test::encoded(test::noise({250, 250}), "png");
        const std::vector<Entry> rows = {{"a", bytesOf({200, 150})}, {"b", noisy}, {"c", large}};
        for (const char* table : {kNamed, "layers"}) {
            writeDatabase(file(), table, rows);
            expect({250, 250}); // over many pages, in pieces
        }
        SQLite::Database database(file().toStdString(), SQLite::OPEN_READWRITE);
        database.exec("ALTER TABLE layers ADD COLUMN thumbnail BLOB");
        database.exec("UPDATE layers SET thumbnail = data WHERE name = 'a'");
        expect({200, 150});
        QVERIFY(test::cutOff(file(), 0.1));
        expect({});
    }

    void streamsInFiles()
    {
        const QByteArray png = bytesOf({40, 30});
        const QByteArray jpeg = bytesOf({60, 50}, "jpg");
        const QByteArray inner = bytesOf({90, 90}, "jpg");
        const QByteArray block =
            test::Bytes(QDataStream::BigEndian).put16(0xffe1, inner.size() + 2).put(inner).all();
        const QByteArray nested = jpeg.left(2) + block + jpeg.mid(2);
        const QByteArray gap(3'000'000, '\xff');
        const QSize none;
        const std::tuple<QByteArray, QSize, qint64> rows[] = {
            {png, {40, 30}, 0},
            {"x" + png + jpeg, {60, 50}, 1 + png.size()},
            {jpeg.chopped(2) + png, {40, 30}, jpeg.size() - 2},
            {png.chopped(1), none, 0},
            {jpeg.chopped(1), none, 0},
            {png.left(40) + png, {40, 30}, 40},
            {nested, {60, 50}, 0},
            {gap.left((1 << 20) - 5) + png, {40, 30}, (1 << 20) - 5}, // over the edge of a piece
            {gap + jpeg + gap, {60, 50}, gap.size()},
            {"", none, 0}};
        for (const auto& [bytes, size, offset] : rows) {
            const auto found = largestIn(bytes).value_or(EmbeddedPicture{});
            QCOMPARE(found.size, size);
            QCOMPARE(found.offset, offset);
            QVERIFY(size == none || QImage::fromData(bytes.mid(offset, found.length)).size() == size);
        }
    }

    // Beginnings without an end, each of which leads through all the rest.
    void streamsWithoutEnd()
    {
        QByteArray chunk = bytesOf({40, 30}).left(33); // a header, then pixels that never end
        chunk += QByteArray("\x00\x00\x00\x01IDAT\x00\x00\x00\x00\x00", 13);
        const QByteArray scan("\xff\xd8\xff\xda\x00\x02\xff\x00", 8);
        for (const QByteArray& bytes : {chunk.repeated(200'000), scan.repeated(1'000'000)})
            QVERIFY(!largestIn(bytes));
    }

    void withoutPreview()
    {
        QByteArray damaged = bytesOf({300, 300}); // Sound on the outside only.
        damaged.replace(damaged.indexOf("IDAT") + 4, 8, "damaged!");
        for (const QByteArray& bytes :
             {""_ba, "a document"_ba, "PK\3\4"_ba, damaged, test::pngThatClaims(100'000, 100'000)}) {
            test::writeFile(file(), bytes);
            expect({});
        }
    }

    void thumbnailersOfTheDesktop()
    {
        const auto at = [this](const char* name) { return m_folder.filePath(QLatin1String(name)); };
        const QString script = at("data/draw");
        test::writeFile(at("data/thumbnailers/a.thumbnailer"),
                        "[Thumbnailer Entry]\nExec=" + script.toUtf8() +
                            " -s %s %u %i %o\nMimeType=application/x-sketch;\n");
        test::writeFile(at("drawn.png"), bytesOf({600, 400}));
        test::writeFile(file(), "a document without a picture");
        const QByteArray right = "[ \"$2\" = 512 -a -f \"$4\" ] && case \"$3\" in file:///*%23*) echo $5 > " +
                                 at("log").toUtf8() + "; cp " + at("drawn.png").toUtf8() + " $5;; esac";
        const QString none = base::text("Failure.Design.NoPreview");
        const std::pair<QByteArray, QString> rows[] = {
            {right, {}}, {right + "; exit 1", none}, {"echo text > $5", none}, {"true", none}};
        for (const auto& [body, reason] : rows) {
            test::writeFile(script, "#!/bin/sh\n" + body + '\n');
            QFile::setPermissions(script, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
            const platform::DesktopThumbnailers desktop({at("data/thumbnailers")});
            const RenderableDocuments renderable(desktop);
            const test::FakeTypes types;
            const QString command =
                MediaClassification(types, renderable).thumbnailerCommand(DocumentType::Sketch);
            const AnalysisResult result = analyse({file(), DocumentType::Sketch, MediaKind::Unset, command});
            QCOMPARE(result.outcome.reason(), reason);
            QCOMPARE(QImage::fromData(result.sideFile, "png").size(),
                     result.outcome.ok() ? QSize(512, 341) : QSize(0, 0));
        }
        const QString picture = QString::fromUtf8(test::fileContents(at("log")).trimmed());
        QVERIFY(!picture.isEmpty() && !QFileInfo::exists(QFileInfo(picture).path()));
    }

    void typesThatCanBeDrawn()
    {
        const test::FakeThumbnailers desktop;
        const test::FakeTypes types;
        const RenderableDocuments renderable(desktop);
        const MediaClassification classification(types, renderable);
        QCOMPARE(classification.allowedMedia().mid(32).join(u' '),
                 u"afdesign AFDESIGN afphoto AFPHOTO idraw IDRAW pxm PXM sketch SKETCH acorn ACORN"_s);
        QVERIFY(!renderable.hasThumbnailer({u"image/x-other"_s}));
    }

private:
    /// That the file's picture has this size; empty for a failure with a reason.
    void expect(QSize size)
    {
        const AnalysisResult result = analyse({file(), DocumentType::IDraw, MediaKind::Unset});
        QCOMPARE(result.outcome.ok(), !size.isEmpty());
        if (result.outcome.ok())
            QCOMPARE(QImage::fromData(result.sideFile, "png").size(), size);
        else
            QVERIFY(!result.outcome.reason().isEmpty());
    }
};

} // namespace

QTEST_GUILESS_MAIN(tst_DesignDocuments)
#include "tst_designdocuments.moc"
