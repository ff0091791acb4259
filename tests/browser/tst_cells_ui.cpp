#include "browser/ui/CellBadges.h"
#include "browser/ui/CellGeometry.h"
#include "browser/ui/PreviewLoader.h"
#include "support/Files.h"
#include "support/Pictures.h"

#include <QPainter>
#include <QtTest>
#include <functional>

using namespace Qt::StringLiterals;
using namespace mosaro;
using namespace mosaro::browser;

namespace {

/// Blue on the left, red on the right.
QByteArray encoded(const QSize& size, const char* format)
{
    QImage image = test::plain(size, Qt::red);
    QPainter(&image).fillRect(0, 0, size.width() / 2, size.height(), Qt::blue);
    return test::encoded(image, format);
}

} // namespace

class TestCells : public QObject {
    Q_OBJECT

    QTemporaryDir m_dir;

    QString write(const QByteArray& bytes, const QString& name = u"preview.png"_s)
    {
        const QString path = m_dir.filePath(name);
        test::writeFile(path, bytes);
        return path;
    }
    static PreviewRequest request(const QString& path, const QSize& box, qreal ratio = 1)
    {
        return {.path = path, .box = box, .ratio = ratio, .file = {}};
    }

private Q_SLOTS:
    void sizesFollowTheZoom()
    {
        QCOMPARE(cellSize(0.4, false), QSize(184, 144));
        QCOMPARE(cellSize(0.7, false), QSize(322, 252));
        QVERIFY(cellSize(0.4, true).height() > 144 + 12 + 11);
    }

    void picturesAreNotEnlarged()
    {
        const std::pair<QSize, QSize> rows[] = {
            {{4000, 1000}, {184, 46}}, {{1000, 4000}, {36, 144}}, {{16, 16}, {16, 16}},
            {{184, 144}, {184, 144}},  {{100'000, 1}, {184, 1}},
        };
        for (const auto& [original, fitted] : rows)
            QCOMPARE(fittedSize(original, {184, 144}), fitted);
    }

    void layersStandWhereTold()
    {
        const CellGeometry cell(QRect(100, 50, 184, 186), 0.4, {184, 144});
        QCOMPARE(cell.imageFrame(), QRectF(100, 50, 184, 144));
        QCOMPARE(cell.selectionFrame(), QRectF(96, 46, 192, 152));
        QCOMPARE(cell.rating(30).size(), QSizeF(40, 14));
        QCOMPARE(cell.rating(30).bottomLeft(), QPointF(99.3, 194.7));
        QCOMPARE(cell.badge(false), QRectF(256, 176, 24, 14));
        QCOMPARE(cell.badge(true), QRectF(254, 164, 24, 24));
        QCOMPARE(cell.alias().topRight(), QPointF(283, 51));
        QCOMPARE(cell.missingSymbol(), QRectF(265, 53, 16, 16));
        QCOMPARE(cell.modifiedSymbol().center(), cell.frame().center());
        QCOMPARE(cell.label(60).center().x(), 192 - 30 - 10);
        QVERIFY(!cell.showsShortRating());
        QVERIFY(CellGeometry(QRect(0, 0, 184, 186), 0.4, {72, 144}).showsShortRating());
        QVERIFY(!CellGeometry(QRect(0, 0, 184, 186), 0.4, {73, 144}).showsShortRating());
    }

    void tinyPicturesHaveRoomForMarks()
    {
        const CellGeometry cell(QRect(0, 0, 184, 186), 0.4, {16, 16});
        QCOMPARE(cell.picture().size(), QSizeF(16, 16));
        for (const QRectF& layer : {cell.badge(false), cell.badge(true), cell.alias(), cell.tags(),
                                    cell.missingSymbol(), cell.modifiedSymbol(), cell.rating(28)}) {
            QVERIFY(cell.selectionFrame().contains(layer));
        }
        QVERIFY(!cell.rating(28).intersects(cell.badge(false)));
    }

    void faintColorsAreLifted()
    {
        const QColor dark(0x1B, 0x1B, 0x1B);
        QCOMPARE(badge::readable(Qt::white, dark), QColor(Qt::white));
        QVERIFY(badge::readable(QColor(0x30, 0x30, 0x30), dark).lightnessF() > 0.39F);
        QVERIFY(badge::readable(QColor(0x66, 0x66, 0x66), dark).lightnessF() < 0.42F); // hardly faint
        QCOMPARE(badge::readable(QColor(0x70, 0x70, 0x70), dark), QColor(0x70, 0x70, 0x70));
    }

    void previewsAreRead()
    {
        const struct {
            const char* name;
            QByteArray bytes;
            qreal ratio;
            QSize expected;
        } rows[] = {
            {"png", encoded({800, 400}, "png"), 1, {184, 92}},
            {"jpeg of that name", encoded({800, 400}, "jpg"), 1, {184, 92}},
            {"for a fine screen", encoded({800, 400}, "jpg"), 2, {368, 184}},
            {"no more pixels than there are", encoded({200, 100}, "png"), 2, {200, 100}},
            {"small", encoded({16, 8}, "png"), 1, {16, 8}},
        };
        for (const auto& row : rows) {
            const QImage image = loadPreview(request(write(row.bytes), {184, 144}, row.ratio)).image;
            QVERIFY2(image.size() == row.expected, row.name);
            const QColor left = image.pixelColor(image.width() / 8, image.height() / 2);
            const QColor right = image.pixelColor(image.width() * 7 / 8, image.height() / 2);
            QVERIFY2(left.blue() > 200 && left.red() < 60, row.name);
            QVERIFY2(right.red() > 200 && right.blue() < 60, row.name);
        }
    }

    void darkDrawingsAreTold()
    {
        using Shape = std::function<void(QPainter&)>;
        const Shape dot = [](QPainter& painter) { painter.drawEllipse(40, 40, 50, 50); };
        const Shape bar = [](QPainter& painter) { painter.drawRect(0, 40, 132, 50); };
        const std::tuple<QColor, Shape, bool> rows[] = {
            {QColor(0, 0, 60), dot, true}, {QColor(0x38, 0x38, 0x38), dot, true},
            {Qt::white, dot, false},       {QColor(255, 150, 0), dot, false},
            {Qt::black, bar, false}, // A photo beside its margins.
            {Qt::transparent, dot, false}};
        for (const auto& [color, shape, expected] : rows) {
            QImage image(132, 132, QImage::Format_ARGB32_Premultiplied);
            image.fill(Qt::transparent);
            QPainter painter(&image);
            painter.setPen(Qt::NoPen);
            painter.setBrush(color);
            shape(painter);
            painter.end();
            QVERIFY2(isDarkDrawing(image) == expected, qPrintable(color.name()));
        }
    }

    void hostilePreviewsAreFailures()
    {
        QByteArray liar = encoded({64, 64}, "bmp");
        liar.replace(18, 8, QByteArray::fromHex("0000010000000100")); // 65,536 by 65,536
        for (const QByteArray& bytes :
             {QByteArray(), QByteArray("preview"), encoded({64, 64}, "png").left(20), liar}) {
            QVERIFY(loadPreview(request(write(bytes), {184, 144})).image.isNull());
        }
        QVERIFY(loadPreview(request(m_dir.filePath(u"none.png"_s), {184, 144})).image.isNull());
    }

    void loaderServesWhatIsWanted()
    {
        PreviewLoader loader;
        std::vector<PreviewRequest> wanted;
        for (int number = 0; number < 40; ++number)
            wanted.push_back(request(write(encoded({40, 40}, "png"), u"%1.png"_s.arg(number)), {20, 20}));
        loader.want(wanted);
        loader.want({wanted[39]}); // all the others that had not begun are no longer wanted
        QTRY_VERIFY(loader.isIdle());
        QVERIFY(loader.picture(wanted[39]) != nullptr);
        QCOMPARE(loader.picture(wanted[39])->image.size(), QSize(20, 20));
        QCOMPARE(loader.picture(wanted[39])->originalSize, QSize(40, 40));
        QCOMPARE(loader.picture(wanted[20]), nullptr);

        PreviewRequest larger = wanted[39];
        larger.box = {30, 30};
        QCOMPARE(loader.picture(larger), nullptr);
        QVERIFY(loader.anyPicture(larger) != nullptr); // in the meantime
        PreviewRequest newer = wanted[39];
        newer.version = 2;
        QCOMPARE(loader.picture(newer), nullptr); // the picture changed
        PreviewRequest missing = request(m_dir.filePath(u"none.png"_s), {20, 20});
        loader.want({missing});
        QTRY_VERIFY(loader.picture(missing) != nullptr);
        QVERIFY(loader.picture(missing)->image.isNull());
    }

    void loaderLooksAtFilesAgain()
    {
        const QString path = write(encoded({40, 40}, "png"), u"watched.png"_s);
        PreviewRequest wanted = request(path, {20, 20});
        wanted.file.path = path;
        PreviewLoader loader;
        QVERIFY(!loader.fileState(path));
        loader.want({wanted});
        QTRY_VERIFY(loader.isFileStateFresh(path));
        QVERIFY(loader.fileState(path)->readable);
        QVERIFY(QFile::remove(path));
        loader.expireFileStates();
        QVERIFY(!loader.isFileStateFresh(path));
        QVERIFY(loader.fileState(path)->readable); // shown until the second look
        wanted.wantsImage = false;
        loader.want({wanted});
        QTRY_VERIFY(loader.isFileStateFresh(path));
        QVERIFY(!loader.fileState(path)->readable);
        wanted.wantsImage = true;
        QVERIFY(loader.picture(wanted) != nullptr); // the second look left the picture alone
    }

    void loaderMayGoWhileReading()
    {
        const QString path = write(encoded({3000, 3000}, "png"), u"large.png"_s);
        for (int round = 0; round < 5; ++round) {
            PreviewLoader loader;
            loader.want({request(path, {20, 20}), request(path, {30, 30})});
        }
        QCoreApplication::processEvents(); // nothing arrives at what is gone
    }
};

QTEST_MAIN(TestCells)
#include "tst_cells_ui.moc"
