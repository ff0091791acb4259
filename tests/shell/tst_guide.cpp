#include "base/Text.h"
#include "kit/Look.h"
#include "shell/About.h"
#include "shell/Guide.h"
#include "shell/GuidePage.h"

#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace mosaro;
using shell::Guide;
using shell::GuideButtons;
using shell::GuidePage;

namespace {

void setReducedMotion(bool reduced)
{
    qputenv("MOSARO_REDUCED_MOTION", reduced ? "1" : "0");
}

QPushButton* visibleButton(const Guide& guide, const QString& text)
{
    for (QPushButton* button : guide.findChildren<QPushButton*>()) {
        if (button->text() == text && !button->isHidden()) {
            return button;
        }
    }
    return nullptr;
}

void show(Guide& guide, const QSize& size)
{
    guide.resize(size);
    guide.show();
}

void addMotion()
{
    QTest::addColumn<bool>("reduced");
    QTest::newRow("at once") << true;
    QTest::newRow("with motion") << false;
}

shell::AboutFacts facts()
{
    return {u"1.2.3"_s, u"45"_s, u"Maria Muster"_s, 2026};
}

} // namespace

class TestGuide : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        base::installTexts();
        kit::installLook(*qApp);
    }
    void init() { setReducedMotion(true); }

    void buttonsOfEachPage()
    {
        QCOMPARE(GuideButtons::onPage(1), (GuideButtons{false, true, false}));
        QCOMPARE(GuideButtons::onPage(2), (GuideButtons{true, true, false}));
        QCOMPARE(GuideButtons::onPage(6), (GuideButtons{true, true, false}));
        QCOMPARE(GuideButtons::onPage(7), (GuideButtons{false, false, true}));
        QCOMPARE(GuideButtons::onPage(8), (GuideButtons{false, false, false}));
    }

    void everyPageHasTextAndADrawing()
    {
        for (int index = 1; index <= GuidePage::kLast; ++index) {
            const GuidePage page(index);
            QVERIFY(page.hasArtwork());
            QVERIFY(!page.title().isEmpty() && !page.title().startsWith(QLatin1String("Guide.")));
            QCOMPARE(page.subtitle().isEmpty(), index == GuidePage::kLast);
            QVERIFY(!page.subtitle().startsWith(QLatin1String("Guide.")));
        }
    }

    void navigation_data() { addMotion(); }

    void navigation()
    {
        QFETCH(bool, reduced);
        setReducedMotion(reduced); // the clicks are faster than the motion
        Guide guide;
        show(guide, {1000, 700});
        guide.naviagateGuidePage(Guide::Back);
        QCOMPARE(guide.guideIndex(), 1);
        guide.showLastGuide();
        QCOMPARE(guide.guideIndex(), 1);
        for (int i = 0; i < 10; ++i) {
            guide.naviagateGuidePage(Guide::On);
        }
        QCOMPARE(guide.guideIndex(), 7);
        guide.naviagateGuidePage(Guide::Back);
        QCOMPARE(guide.guideIndex(), 6);
        guide.naviagateGuidePage(Guide::On);
        visibleButton(guide, base::text("Basic.Start"))->click();
        QCOMPARE(guide.guideIndex(), 8);
        guide.naviagateGuidePage(Guide::Back);
        QCOMPARE(guide.guideIndex(), 8);

        QSignalSpy finished(&guide, &Guide::finished);
        QPushButton* go = visibleButton(guide, base::text("Basic.Lets.Go"));
        QVERIFY(go != nullptr);
        go->click();
        go->click();
        QTRY_COMPARE(finished.count(), 1);
        QTRY_COMPARE(guide.findChildren<GuidePage*>().size(), 1);
    }

    void keyboard()
    {
        Guide guide;
        show(guide, {1000, 700});
        QSignalSpy finished(&guide, &Guide::finished);
        QTest::keyClick(&guide, Qt::Key_Right);
        QTest::keyClick(&guide, Qt::Key_Return);
        QCOMPARE(guide.guideIndex(), 3);
        QTest::keyClick(&guide, Qt::Key_Left);
        QCOMPARE(guide.guideIndex(), 2);
        QTest::keyClick(&guide, Qt::Key_Escape);
        QCOMPARE(guide.guideIndex(), 2);
        for (int i = 0; i < 6; ++i) {
            QTest::keyClick(&guide, Qt::Key_Return);
        }
        QCOMPARE(guide.guideIndex(), 8);
        QCOMPARE(finished.count(), 0);
        QTest::keyClick(&guide, Qt::Key_Return);
        QCOMPARE(finished.count(), 1);
    }

    void guideFitsASmallWindow()
    {
        Guide guide;
        show(guide, {500, 360});
        for (const QPushButton* button : guide.findChildren<QPushButton*>()) {
            if (!button->isHidden()) {
                QVERIFY(guide.rect().contains(QRect(button->mapTo(&guide, QPoint(0, 0)), button->size())));
            }
        }
    }

    void about_data() { addMotion(); }

    void about()
    {
        QFETCH(bool, reduced);
        setReducedMotion(reduced);
        if (!reduced && kit::motion(100) == 0) {
            QSKIP("This desktop asks for reduced motion");
        }
        shell::About about(facts());
        QSignalSpy ended(&about, &shell::About::creditsEnded);
        QCOMPARE(about.textFieldOffset(), 300 + 253);
        QCOMPARE(about.specialThanksWidth(), 0);
        QCOMPARE(about.labelAlpha(), 0.0);
        int leftmost = 0;
        QTimer sampler;
        connect(&sampler, &QTimer::timeout, this,
                [&about, &leftmost] { leftmost = qMin(leftmost, about.textFieldOffset()); });
        sampler.start(5);
        about.showWindow();
        QVERIFY(reduced || about.labelAlpha() == 0.0);
        QTRY_COMPARE_WITH_TIMEOUT(ended.count(), 1, 20'000);
        QVERIFY2(reduced ? leftmost == 0 : leftmost < 0 && leftmost >= -5,
                 qPrintable(QString::number(leftmost)));
        QCOMPARE(about.textFieldOffset(), 0);
        QCOMPARE(about.labelAlpha(), 1.0);
        QCOMPARE(about.specialThanksAlpha(), 1.0);
        QCOMPARE(about.specialThanksWidth(), 331);
        about.showWindow();
        QCOMPARE(ended.count(), 1);
    }

    void aboutTellsTheFacts()
    {
        const shell::About about(facts());
        QStringList texts;
        for (const QLabel* label : about.findChildren<QLabel*>()) {
            texts << label->text();
        }
        QVERIFY(texts.contains(u"Version 1.2.3 (45)"_s));
        QVERIFY(texts.contains(u"Special thanks to Maria Muster"_s));
        QVERIFY(texts.filter(u"2026"_s).size() == 1);
    }

    void eachShowingOfAboutIsNew()
    {
        QPointer<shell::About> first = &shell::About::sharedController();
        QCOMPARE(&shell::About::sharedController(), first.data());
        first->showWindow();
        QVERIFY(first->isAnimated());
        first->close();
        QTRY_VERIFY(first.isNull());
        shell::About& second = shell::About::sharedController();
        QVERIFY(!second.isAnimated());
        second.close();
    }
};

QTEST_MAIN(TestGuide)
#include "tst_guide.moc"
