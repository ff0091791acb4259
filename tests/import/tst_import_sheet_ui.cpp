#include "import/ui/FailedPathDelegate.h"
#include "import/ui/ImportSheet.h"
#include "import/ui/MRFileErrorView.h"
#include "import/ui/PreviewWell.h"
#include "support/Pictures.h"
#include "support/WindowTest.h"

#include <QClipboard>
#include <QListView>
#include <QPointer>
#include <QPushButton>

using namespace mosaro;
using namespace Qt::StringLiterals;
using importing::ImportProgress;
using importing::MRFileErrorView;

namespace {

QByteArray pictureBytes(QSize size, const QColor& fill)
{
    return test::encoded(test::plain(size, fill), "png");
}

std::vector<importing::FailedPath> failedPaths(int count)
{
    std::vector<importing::FailedPath> failed;
    for (int i = 0; i < count; ++i)
        failed.push_back({u"/pictures/%1/file-%1.png"_s.arg(i), u"Reason\n%1"_s.arg(i)});
    return failed;
}

} // namespace

class TestImportSheet : public test::WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void percent()
    {
        for (const auto& [index, total, percent] :
             {std::tuple(1, 3, 33), {2, 3, 66}, {3, 3, 100}, {1, 1000, 0}, {0, 0, 0}}) {
            importing::ImportSheet sheet;
            sheet.resetProgress(total);
            QCOMPARE(sheet.percent(), 0);
            sheet.showProgress({u"/a/name.png"_s, index, total, {}, {}});
            QCOMPARE(sheet.percent(), percent);
            QVERIFY(sheet.text().contains(u"name.png"_s) && !sheet.text().contains(u"/a"_s));
        }
        importing::ImportSheet sheet; // A long name stays within it.
        sheet.showProgress({QString(400, u'w') + u".png"_s, 1, 2, {}, {}});
        QVERIFY(sheet.sizeHint().width() <= sheet.maximumWidth());
    }

    void previewIsDecodedToFit()
    {
        importing::ImportSheet sheet;
        auto* well = sheet.findChild<importing::PreviewWell*>();
        auto* swatches = sheet.findChild<importing::SwatchRow*>();
        ImportProgress progress{u"a.png"_s, 1, 2, pictureBytes(QSize(460, 360), Qt::red), {{1, 0, 0, 1}}};
        sheet.showProgress(progress);
        QVERIFY(!well->picture().isNull() && well->picture().width() <= 230 * well->devicePixelRatio());
        QCOMPARE(swatches->colors().size(), size_t(4));
        QCOMPARE(swatches->colors()[0], QColor(Qt::red));
        QVERIFY(!swatches->colors()[1].isValid());

        progress = {u"failed.png"_s, 2, 2, {}, {}};
        sheet.showProgress(progress);
        QVERIFY(!well->picture().isNull());
        sheet.resetProgress(4);
        QVERIFY(well->picture().isNull());
    }

    void bytesThatAreNoPicture()
    {
        importing::PreviewWell well;
        const QByteArray blue = pictureBytes(QSize(100, 100), Qt::blue);
        for (const QByteArray& bytes :
             {"not a picture"_ba, blue.left(30), pictureBytes({8000, 1}, Qt::blue)}) {
            well.setPreview(pictureBytes(QSize(10, 10), Qt::green));
            QCOMPARE(well.picture().size(), QSize(10, 10));
            well.setPreview(bytes);
            QVERIFY(well.picture().isNull() && !well.grab().isNull());
        }
    }

    void stopIsAskedOnce()
    {
        importing::ImportSheet sheet;
        QSignalSpy stop(&sheet, &importing::ImportSheet::stopRequested);
        auto* button = sheet.findChild<QPushButton*>();
        button->click();
        button->click();
        QCOMPARE(stop.count(), 1);
        QVERIFY(!button->isEnabled());
        sheet.resetProgress(3);
        QVERIFY(button->isEnabled());
    }

    void failedFiles()
    {
        QVERIFY(MRFileErrorView::showFailedPaths({}, {}) == nullptr);
        QVERIFY(MRFileErrorView::current() == nullptr);
        QStringList revealed;
        const auto reveal = [&revealed](const QString& path) { revealed << path; };
        QPointer<MRFileErrorView> view = MRFileErrorView::showFailedPaths(failedPaths(10'000), reveal);
        QCOMPARE(view->count(), 10'000);
        auto* list = view->findChild<QListView*>();
        QVERIFY(list->hasFocus() || view->focusWidget() == list);

        view->revealCurrent();
        QTest::keyClick(list, Qt::Key_End);
        view->revealCurrent();
        QCOMPARE(revealed, QStringList({u"/pictures/0/file-0.png"_s, u"/pictures/9999/file-9999.png"_s}));

        list->scrollToTop();
        const QRect row = list->visualRect(list->model()->index(1, 0));
        const QPoint button = importing::FailedPathDelegate::buttonRect(row).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, button);
        QCOMPARE(revealed.last(), u"/pictures/1/file-1.png"_s);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, row.topLeft() + QPoint(60, 10));
        QCOMPARE(revealed.size(), 3);

        view->copyList();
        const QStringList lines = QGuiApplication::clipboard()->text().split(u'\n', Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), 10'000);
        QCOMPARE(lines.first(), u"/pictures/0/file-0.png\tReason 0"_s);

        QCOMPARE(MRFileErrorView::showFailedPaths(failedPaths(2), reveal), view.data());
        QCOMPARE(view->count(), 2);
        QTest::keyClick(view.data(), Qt::Key_Escape);
        QTRY_VERIFY(view.isNull());
        QVERIFY(MRFileErrorView::current() == nullptr);
    }
};

QTEST_MAIN(TestImportSheet)
#include "tst_import_sheet_ui.moc"
