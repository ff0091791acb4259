#include "shell/SplitRules.h"
#include "shell/SplitView.h"
#include "shell/WindowFrame.h"

#include <QtTest>

using namespace mosaro::shell;

class WindowRulesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void divider_data();
    void divider();
    void frameText_data();
    void frameText();
    void frameWithinScreen_data();
    void frameWithinScreen();
    void frameSurvivesTheStore();
    void sidebarKeepsItsWidth();
    void draggingStopsAtItsBounds();
    void hiddenSidebarLeavesAllToTheBrowser();
};

void WindowRulesTest::divider_data()
{
    QTest::addColumn<int>("wanted");
    QTest::addColumn<int>("total");
    QTest::addColumn<int>("dragged");
    QTest::addColumn<int>("resized");
    QTest::newRow("free") << 300 << 1000 << 300 << 300;
    QTest::newRow("too far left") << 10 << 1000 << 200 << 10;
    QTest::newRow("at the least") << 200 << 1000 << 200 << 200;
    QTest::newRow("too far right") << 900 << 1000 << 400 << 400;
    QTest::newRow("at the most") << 400 << 1000 << 400 << 400;
    QTest::newRow("part of a point") << 400 << 999 << 399 << 399;
    QTest::newRow("no room for the least") << 300 << 400 << 160 << 160;
}

void WindowRulesTest::divider()
{
    QFETCH(int, wanted);
    QFETCH(int, total);
    QTEST(draggedSidebarWidth(wanted, total), "dragged");
    QTEST(resizedSidebarWidth(wanted, total), "resized");
}

void WindowRulesTest::frameText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QRect>("frame");
    QTest::newRow("whole") << QStringLiteral("10 20 800 600 0 0 1920 1080") << QRect(10, 20, 800, 600);
    QTest::newRow("left of the first screen")
        << QStringLiteral("-900 20 800 600") << QRect(-900, 20, 800, 600);
    QTest::newRow("empty") << QString() << QRect();
    QTest::newRow("too short") << QStringLiteral("1 2 3") << QRect();
    QTest::newRow("no numbers") << QStringLiteral("a b c d") << QRect();
    QTest::newRow("no size") << QStringLiteral("10 20 0 -4") << QRect();
    QTest::newRow("beyond reason") << QStringLiteral("0 0 2147483647 600") << QRect();
    QTest::newRow("beyond a number") << QStringLiteral("0 0 99999999999 600") << QRect();
}

void WindowRulesTest::frameText()
{
    QFETCH(QString, text);
    QTEST(frameFromText(text).value_or(QRect()), "frame");
}

void WindowRulesTest::frameWithinScreen_data()
{
    QTest::addColumn<QRect>("frame");
    QTest::addColumn<QRect>("result");
    QTest::newRow("inside") << QRect(10, 40, 800, 600) << QRect(10, 40, 800, 600);
    QTest::newRow("above") << QRect(10, -50, 800, 600) << QRect(10, 30, 800, 600);
    QTest::newRow("beyond the corner") << QRect(5000, 5000, 800, 600) << QRect(480, 430, 800, 600);
    QTest::newRow("larger than the screen") << QRect(-100, -100, 4000, 3000) << QRect(0, 30, 1280, 1000);
}

void WindowRulesTest::frameWithinScreen()
{
    QFETCH(QRect, frame);
    QTEST(frameWithin(frame, QRect(0, 30, 1280, 1000)), "result");
}

void WindowRulesTest::frameSurvivesTheStore()
{
    const QRect frame(-20, 40, 1280, 800);
    QCOMPARE(frameFromText(frameAsText(frame, QRect(0, 0, 1920, 1080))), std::optional(frame));
    QCOMPARE(defaultFrame(QRect(0, 0, 1920, 1080)), QRect(320, 140, 1280, 800));
    QCOMPARE(defaultFrame(QRect(0, 0, 1024, 600)).size(), QSize(1024, 600));
}

void WindowRulesTest::sidebarKeepsItsWidth()
{
    SplitView view;
    auto* sidebar = new QWidget;
    auto* browser = new QWidget;
    view.setPanes(sidebar, browser);
    view.resize(1000, 500);
    view.show();
    view.moveDivider(320);
    view.resize(1400, 500);
    QCOMPARE(sidebar->geometry(), QRect(0, 0, 320, 500));
    QCOMPARE(browser->geometry(), QRect(321, 0, 1079, 500));
    view.resize(700, 400);
    QCOMPARE(sidebar->width(), 280);
    QCOMPARE(browser->geometry(), QRect(281, 0, 419, 400));
}

void WindowRulesTest::draggingStopsAtItsBounds()
{
    SplitView view;
    view.setPanes(new QWidget, new QWidget);
    view.resize(1000, 500);
    view.show();
    QSignalSpy adjusted(&view, &SplitView::panesAdjusted);
    QWidget* divider = view.childAt(view.sidebarWidth(), 100);
    QVERIFY(divider != nullptr);
    QTest::mousePress(divider, Qt::LeftButton, {}, {3, 100});
    QTest::mouseMove(divider, QPoint(900, 100));
    QCOMPARE(view.sidebarWidth(), 400);
    QTest::mouseMove(divider, QPoint(-900, 100));
    QCOMPARE(view.sidebarWidth(), 200);
    QTest::mouseRelease(divider, Qt::LeftButton);
    QTest::keyClick(divider, Qt::Key_Right);
    QCOMPARE(view.sidebarWidth(), 210);
    QCOMPARE(adjusted.count(), 3);
}

void WindowRulesTest::hiddenSidebarLeavesAllToTheBrowser()
{
    SplitView view;
    auto* sidebar = new QWidget;
    auto* browser = new QWidget;
    view.setPanes(sidebar, browser);
    view.resize(1000, 500);
    view.show();
    QSignalSpy adjusted(&view, &SplitView::panesAdjusted);
    view.setSidebarHidden(true, true);
    QVERIFY(view.isSidebarHidden());
    QTRY_COMPARE(browser->geometry(), view.rect());
    QTRY_VERIFY(!sidebar->isVisible());
    QTRY_COMPARE(adjusted.count(), 1);
    view.resize(600, 500);
    QCOMPARE(browser->geometry(), view.rect());
    view.moveDivider(300);
    QVERIFY(!sidebar->isVisible());
    view.setSidebarHidden(false, false);
    QVERIFY(sidebar->isVisible());
    QCOMPARE(sidebar->geometry().left(), 0);
    QCOMPARE(sidebar->width() + 1 + browser->width(), view.width());
}

QTEST_MAIN(WindowRulesTest)
#include "tst_windowrules.moc"
