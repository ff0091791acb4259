#include "kit/ModeOverlay.h"
#include "kit/ProgressPanel.h"
#include "kit/ProgressView.h"
#include "kit/Sheet.h"
#include "kit/SpinnerOverlay.h"
#include "support/WindowTest.h"

#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QShortcut>
#include <QSignalSpy>
#include <QVBoxLayout>

using namespace mosaro;
using namespace Qt::StringLiterals;

namespace {

/// A window with a field and a button, and something to put over it.
class Window : public QWidget {
public:
    Window()
    {
        resize(600, 400);
        field = new QLineEdit(this);
        field->setGeometry(10, 10, 200, 24);
        button = new QPushButton(u"Below"_s, this);
        button->setGeometry(250, 200, 100, 40);
        show();
        QApplication::setActiveWindow(this);
        field->setFocus();
    }
    QLineEdit* field;
    QPushButton* button;
};

/// A sheet with a field and a button, ready to be shown.
struct Filled {
    Window window;
    kit::Sheet sheet{window};
    QWidget* content = new QWidget;
    QLineEdit* first = new QLineEdit;
    QPushButton* second = new QPushButton(u"Inside"_s);

    Filled()
    {
        content->setFixedSize(300, 120);
        auto* layout = new QVBoxLayout(content);
        layout->addWidget(first);
        auto* part = new QLineEdit; // As the text of a date field.
        part->setFocusProxy(first);
        layout->addWidget(part);
        layout->addWidget(second);
        sheet.setContent(content);
    }
};

} // namespace

class TestSheet : public test::WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qputenv("MOSARO_REDUCED_MOTION", "1"); }

    void hangsCentredBelowTheTop()
    {
        Filled on;
        QVERIFY(!kit::Sheet::isAttachedTo(on.window));
        on.sheet.showSheet();
        QVERIFY(kit::Sheet::isAttachedTo(on.window));
        QCOMPARE(on.content->mapTo(&on.window, QPoint(0, 0)), QPoint(150, 36));
        on.window.resize(800, 500);
        QTRY_COMPARE(on.content->mapTo(&on.window, QPoint(0, 0)), QPoint(250, 36));
        QCOMPARE(on.sheet.size(), on.window.size());
    }

    void keepsTheKeyboard()
    {
        Filled on;
        QShortcut shortcut(QKeySequence(Qt::CTRL | Qt::Key_D), &on.window);
        QSignalSpy triggered(&shortcut, &QShortcut::activated);
        QMenuBar bar(&on.window);
        QAction* command = bar.addMenu(u"File"_s)->addAction(u"Import"_s);
        command->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_I));
        bar.show();
        QSignalSpy commanded(command, &QAction::triggered);
        QSignalSpy clicked(on.second, &QPushButton::clicked);
        on.second->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_J));
        on.sheet.showSheet();
        QCOMPARE(on.window.focusWidget(), on.first);
        QTest::keyClick(on.first, Qt::Key_Tab);
        QCOMPARE(on.window.focusWidget(), on.second);
        QTest::keyClick(on.second, Qt::Key_Tab);
        QCOMPARE(on.window.focusWidget(), on.first);
        QTest::keyClick(on.first, Qt::Key_Backtab);
        QCOMPARE(on.window.focusWidget(), on.second);
        on.window.field->setFocus();
        QVERIFY(!on.window.field->hasFocus());
        for (const Qt::Key key : {Qt::Key_D, Qt::Key_I, Qt::Key_J})
            QTest::keyClick(on.first, key, Qt::ControlModifier);
        QCOMPARE(triggered.count() + commanded.count(), 0);
        QTRY_COMPARE(clicked.count(), 1);
        on.sheet.endSheet();
        QTest::keyClick(&on.window, Qt::Key_D, Qt::ControlModifier);
        QTest::keyClick(&on.window, Qt::Key_I, Qt::ControlModifier);
        QCOMPARE(triggered.count(), 1);
        QCOMPARE(commanded.count(), 1);
    }

    void keepsTheMouse()
    {
        Filled on;
        QSignalSpy clicked(on.window.button, &QPushButton::clicked);
        const QPoint button = on.window.button->geometry().center();
        on.sheet.showSheet();
        QCOMPARE(on.window.childAt(button), &on.sheet);
        QTest::mouseClick(on.window.windowHandle(), Qt::LeftButton, {}, button);
        QCOMPARE(clicked.count(), 0);
        on.sheet.endSheet();
        QTest::mouseClick(on.window.windowHandle(), Qt::LeftButton, {}, button);
        QCOMPARE(clicked.count(), 1);
    }

    void endsOnceAndGivesFocusBack()
    {
        Filled on;
        QSignalSpy ended(&on.sheet, &kit::Sheet::ended);
        on.sheet.endSheet();
        QCOMPARE(ended.count(), 0);
        on.sheet.showSheet();
        on.sheet.endSheet();
        on.sheet.endSheet();
        QCOMPARE(ended.count(), 1);
        QVERIFY(!kit::Sheet::isAttachedTo(on.window));
        QCOMPARE(on.window.focusWidget(), on.window.field);
    }

    void survivesContentAndFocusThatDie()
    {
        Filled on;
        on.sheet.showSheet();
        delete on.content;
        delete on.window.field;
        on.window.resize(500, 300);
        on.sheet.endSheet();
        QVERIFY(!kit::Sheet::isAttachedTo(on.window));
    }

    void progressPanel()
    {
        Window window;
        kit::ProgressPanel panel(window);
        panel.begin(u"Deleting"_s);
        QVERIFY(kit::Sheet::isAttachedTo(window));
        for (const auto& [given, shown] : {std::pair(40, 40), std::pair(-5, 0), std::pair(250, 100)}) {
            panel.update({}, given);
            QCOMPARE(panel.view()->value(), shown);
            QCOMPARE(panel.view()->text(), u"Deleting"_s);
        }
        panel.update(u"Sorting"_s, 100);
        QCOMPARE(panel.view()->text(), u"Sorting"_s);
        panel.end();
        QVERIFY(!kit::Sheet::isAttachedTo(window));
        panel.begin(u"Again"_s);
        QCOMPARE(panel.view()->value(), 0);
    }

    void progressPanelOffersAStopOnce()
    {
        Window window;
        kit::ProgressPanel panel(window);
        auto* button = panel.view()->findChild<QPushButton*>();
        int stops = 0;
        panel.begin(u"Deleting"_s);
        QVERIFY(!button->isVisible());
        for (const int expected : {1, 2}) {
            panel.offerStop([&stops] { ++stops; });
            QVERIFY(button->isVisible() && button->hasFocus());
            QTest::keyClick(button, Qt::Key_Escape);
            QTRY_COMPARE(stops, expected);
            QVERIFY(!button->isEnabled());
        }
        panel.offerStop({});
        QVERIFY(!button->isVisible());
    }

    void progressPanelOutlivesItsWindow()
    {
        auto window = std::make_unique<Window>();
        kit::ProgressPanel panel(*window);
        panel.begin(u"Working"_s);
        window.reset();
        panel.update({}, 50);
        panel.end();
        QVERIFY(panel.view() == nullptr);
    }

    void spinnerOverlay()
    {
        Window window;
        kit::SpinnerOverlay overlay(window);
        overlay.updateAlertViewMessage(u"too early"_s);
        QCOMPARE(overlay.message(), QString());
        overlay.showAlertView(true, u"First"_s);
        overlay.showAlertView(true, u"Second"_s);
        QVERIFY(overlay.isUp());
        QCOMPARE(overlay.message(), u"Second"_s);
        QCOMPARE(overlay.geometry(), window.rect());
        QCOMPARE(window.childAt(window.button->geometry().center())->window(), &window);
        QVERIFY(window.childAt(window.button->geometry().center()) != window.button);
        overlay.showAlertView(false);
        QTRY_VERIFY(overlay.isHidden());
        QCOMPARE(window.focusWidget(), window.field);
    }

    void modeOverlayHostsAView()
    {
        Window window;
        kit::ModeOverlay overlay(window);
        QPointer<QLineEdit> view = new QLineEdit;
        QSignalSpy gone(&overlay, &kit::Overlay::gone);
        overlay.showAlertMode(true, view);
        QCOMPARE(view->geometry(), window.rect());
        QCOMPARE(window.focusWidget(), view.data());
        QTest::keyClick(view.data(), Qt::Key_Tab);
        QCOMPARE(window.focusWidget(), view.data());
        window.resize(700, 500);
        QTRY_COMPARE(view->size(), window.size());
        overlay.showAlertMode(false);
        QTRY_COMPARE(gone.count(), 1);
        QVERIFY(view.isNull());
    }

    void overlayFadesWhenMotionIsWelcome()
    {
        qunsetenv("MOSARO_REDUCED_MOTION");
        Window window;
        kit::ModeOverlay overlay(window);
        QSignalSpy gone(&overlay, &kit::Overlay::gone);
        overlay.showAlertMode(true, new QWidget);
        overlay.showAlertMode(false);
        overlay.showAlertMode(true);
        QVERIFY(overlay.isUp());
        overlay.showAlertMode(false);
        QTRY_COMPARE(gone.count(), 1);
        QVERIFY(overlay.isHidden());
        qputenv("MOSARO_REDUCED_MOTION", "1");
    }
};

QTEST_MAIN(TestSheet)
#include "tst_sheet.moc"
