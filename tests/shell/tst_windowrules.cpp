#include "shell/SplitRules.h"
#include "shell/SplitView.h"
#include "shell/WindowFrame.h"

#include <QtTest>

using namespace Qt::StringLiterals;
using namespace mosaro::shell;

class WindowRulesTest : public QObject {
    Q_OBJECT

    /// A shown view of 1000 by 500 points with both panes.
    struct Window {
        SplitView view;
        QWidget* sidebar = new QWidget;
        QWidget* browser = new QWidget;
        QSignalSpy adjusted{&view, &SplitView::panesAdjusted};

        Window()
        {
            view.setPanes(sidebar, browser);
            view.resize(1000, 500);
            view.show();
        }
    };

private Q_SLOTS:
    void divider()
    {
        const struct {
            const char* name;
            int wanted, total, dragged, resized;
        } rows[] = {
            {"too far left", 10, 1000, 200, 10},     {"at the least", 200, 1000, 200, 200},
            {"too far right", 900, 1000, 400, 400},  {"at the most", 400, 1000, 400, 400},
            {"part of a point", 400, 999, 399, 399}, {"no room for the least", 300, 400, 160, 160},
        };
        for (const auto& [name, wanted, total, dragged, resized] : rows) {
            QVERIFY2(draggedSidebarWidth(wanted, total) == dragged, name);
            QVERIFY2(resizedSidebarWidth(wanted, total) == resized, name);
        }
    }

    void frameText()
    {
        QCOMPARE(frameFromText(u"-900 20 800 600 0 0 1920 1080"_s), std::optional(QRect(-900, 20, 800, 600)));
        for (const char* text :
             {"", "1 2 3", "a b c d", "10 20 0 -4", "0 0 2147483647 600", "0 0 99999999999 600"})
            QVERIFY2(!frameFromText(QString::fromLatin1(text)), text);
        const QRect frame(-20, 40, 1280, 800);
        QCOMPARE(frameFromText(frameAsText(frame, QRect(0, 0, 1920, 1080))), std::optional(frame));
    }

    void frameWithinScreen()
    {
        const QRect screen(0, 30, 1280, 1000);
        QCOMPARE(frameWithin({10, 40, 800, 600}, screen), QRect(10, 40, 800, 600));
        QCOMPARE(frameWithin({10, -50, 800, 600}, screen), QRect(10, 30, 800, 600));
        QCOMPARE(frameWithin({5000, 5000, 800, 600}, screen), QRect(480, 430, 800, 600));
        QCOMPARE(frameWithin({-100, -100, 4000, 3000}, screen), screen);
        QCOMPARE(defaultFrame({0, 0, 1920, 1080}), QRect(320, 140, 1280, 800));
        QCOMPARE(defaultFrame({0, 0, 1024, 600}).size(), QSize(1024, 600));
    }

    void sidebarKeepsItsWidth()
    {
        Window window;
        window.view.moveDivider(320);
        window.view.resize(1400, 500);
        QCOMPARE(window.sidebar->geometry(), QRect(0, 0, 320, 500));
        QCOMPARE(window.browser->geometry(), QRect(321, 0, 1079, 500));
        window.view.resize(700, 400);
        QCOMPARE(window.sidebar->width(), 280);
        QCOMPARE(window.browser->geometry(), QRect(281, 0, 419, 400));
    }

    void draggingStopsAtItsBounds()
    {
        Window window;
        QWidget* divider = window.view.childAt(window.view.sidebarWidth(), 100);
        QVERIFY(divider != nullptr);
        QTest::mousePress(divider, Qt::LeftButton, {}, {3, 100});
        QTest::mouseMove(divider, QPoint(900, 100));
        QCOMPARE(window.view.sidebarWidth(), 400);
        QTest::mouseMove(divider, QPoint(-900, 100));
        QCOMPARE(window.view.sidebarWidth(), 200);
        QTest::mouseRelease(divider, Qt::LeftButton);
        QTest::keyClick(divider, Qt::Key_Right);
        QCOMPARE(window.view.sidebarWidth(), 210);
        QCOMPARE(window.adjusted.count(), 3);
    }

    void hiddenSidebarLeavesAllToTheBrowser()
    {
        Window window;
        SplitView& view = window.view;
        view.setSidebarHidden(true, true);
        QVERIFY(view.isSidebarHidden());
        QTRY_COMPARE(window.browser->geometry(), view.rect());
        QTRY_VERIFY(!window.sidebar->isVisible());
        QTRY_COMPARE(window.adjusted.count(), 1);
        view.resize(600, 500);
        QCOMPARE(window.browser->geometry(), view.rect());
        view.moveDivider(300);
        QVERIFY(!window.sidebar->isVisible());
        view.setSidebarHidden(false, false);
        QVERIFY(window.sidebar->isVisible());
        QCOMPARE(window.sidebar->geometry().left(), 0);
        QCOMPARE(window.sidebar->width() + 1 + window.browser->width(), view.width());
    }
};

QTEST_MAIN(WindowRulesTest)
#include "tst_windowrules.moc"
