#include "shell/About.h"
#include "shell/Guide.h"
#include "shell/GuidePage.h"
#include "shell/ShellFixture.h"

#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QPushButton>

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

QPushButton* visibleButton(const Guide& guide, const char* key)
{
    for (QPushButton* button : guide.findChildren<QPushButton*>()) {
        if (button->text() == base::text(key) && !button->isHidden())
            return button;
    }
    return nullptr;
}

void show(Guide& guide, const QSize& size)
{
    guide.resize(size);
    guide.show();
}

shell::AboutFacts facts()
{
    return {u"1.2.3"_s, u"45"_s, u"Maria Muster"_s, 2026};
}

} // namespace

class TestGuide : public test::WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void init() { setReducedMotion(true); }

    void pages()
    {
        const std::pair<int, GuideButtons> buttons[] = {{1, {false, true, false}},
                                                        {2, {true, true, false}},
                                                        {6, {true, true, false}},
                                                        {7, {false, false, true}},
                                                        {8, {false, false, false}}};
        for (const auto& [index, expected] : buttons)
            QCOMPARE(GuideButtons::onPage(index), expected);
        for (int index = 1; index <= GuidePage::kLast; ++index) {
            const GuidePage page(index);
            QVERIFY(page.hasArtwork() && !page.title().isEmpty());
            QVERIFY(!page.title().startsWith("Guide."_L1) && !page.subtitle().startsWith("Guide."_L1));
            QCOMPARE(page.subtitle().isEmpty(), index == GuidePage::kLast);
        }
    }

    void navigation()
    {
        for (const bool reduced : {true, false}) {
            setReducedMotion(reduced); // the clicks are faster than the motion
            Guide guide;
            show(guide, {1000, 700});
            guide.naviagateGuidePage(Guide::Back);
            guide.showLastGuide();
            QCOMPARE(guide.guideIndex(), 1);
            for (int i = 0; i < 10; ++i)
                guide.naviagateGuidePage(Guide::On);
            QCOMPARE(guide.guideIndex(), 7);
            guide.naviagateGuidePage(Guide::Back);
            QCOMPARE(guide.guideIndex(), 6);
            guide.naviagateGuidePage(Guide::On);
            visibleButton(guide, "Basic.Start")->click();
            QCOMPARE(guide.guideIndex(), 8);
            guide.naviagateGuidePage(Guide::Back);
            QCOMPARE(guide.guideIndex(), 8);

            QSignalSpy finished(&guide, &Guide::finished);
            QPushButton* go = visibleButton(guide, "Basic.Lets.Go");
            go->click();
            go->click();
            QTRY_COMPARE(finished.count(), 1);
            QTRY_COMPARE(guide.findChildren<GuidePage*>().size(), 1);
        }
    }

    void keyboard()
    {
        Guide guide;
        show(guide, {1000, 700});
        QSignalSpy finished(&guide, &Guide::finished);
        const std::pair<Qt::Key, int> rows[] = {
            {Qt::Key_Right, 2}, {Qt::Key_Return, 3}, {Qt::Key_Left, 2}, {Qt::Key_Escape, 2}};
        for (const auto& [key, page] : rows) {
            QTest::keyClick(&guide, key);
            QCOMPARE(guide.guideIndex(), page);
        }
        for (int i = 0; i < 6; ++i)
            QTest::keyClick(&guide, Qt::Key_Return);
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
            const QRect place(button->mapTo(&guide, QPoint(0, 0)), button->size());
            QVERIFY(button->isHidden() || guide.rect().contains(place));
        }
    }

    void about_data()
    {
        QTest::addColumn<bool>("reduced");
        QTest::newRow("at once") << true;
        QTest::newRow("with motion") << false;
    }
    void about()
    {
        QFETCH(bool, reduced);
        setReducedMotion(reduced);
        if (!reduced && kit::motion(100) == 0)
            QSKIP("This desktop asks for reduced motion");
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
        QVERIFY(about.labelAlpha() == 1.0 && about.specialThanksAlpha() == 1.0);
        QCOMPARE(about.specialThanksWidth(), 331);
        about.showWindow();
        QCOMPARE(ended.count(), 1);
    }

    void aboutTellsTheFacts()
    {
        const shell::About about(facts());
        QStringList texts;
        for (const QLabel* label : about.findChildren<QLabel*>())
            texts << label->text();
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
