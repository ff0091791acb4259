#include "kit/Look.h"
#include "kit/ModeOverlay.h"
#include "kit/ProgressPanel.h"
#include "kit/ProgressView.h"
#include "kit/Sheet.h"
#include "kit/SpinnerOverlay.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QShortcut>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

using namespace mosaro;

namespace {

/// A window with a field and a button, and something to put over it.
class Window : public QWidget {
public:
    Window()
    {
        resize(600, 400);
        field = new QLineEdit(this);
        field->setGeometry(10, 10, 200, 24);
        button = new QPushButton(QStringLiteral("Below"), this);
        button->setGeometry(250, 200, 100, 40);
        show();
        QApplication::setActiveWindow(this);
        field->setFocus();
    }
    QLineEdit* field;
    QPushButton* button;
};

QWidget* contentWith(QLineEdit*& first, QPushButton*& second)
{
    auto* content = new QWidget;
    content->setFixedSize(300, 120);
    auto* layout = new QVBoxLayout(content);
    first = new QLineEdit;
    second = new QPushButton(QStringLiteral("Inside"));
    layout->addWidget(first);
    layout->addWidget(second);
    return content;
}

} // namespace

class TestSheet : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("MOSARO_REDUCED_MOTION", "1");
        kit::installLook(*qApp);
    }

    void hangsCentredBelowTheTop()
    {
        Window window;
        kit::Sheet sheet(window);
        QLineEdit* first = nullptr;
        QPushButton* second = nullptr;
        QWidget* content = contentWith(first, second);
        sheet.setContent(content);
        QVERIFY(!kit::Sheet::isAttachedTo(window));
        sheet.showSheet();
        QVERIFY(kit::Sheet::isAttachedTo(window));
        QCOMPARE(content->mapTo(&window, QPoint(0, 0)), QPoint(150, 36));
        window.resize(800, 500);
        QTRY_COMPARE(content->mapTo(&window, QPoint(0, 0)), QPoint(250, 36));
        QCOMPARE(sheet.size(), window.size());
    }

    void keepsTheKeyboard()
    {
        Window window;
        QShortcut shortcut(QKeySequence(Qt::CTRL | Qt::Key_D), &window);
        QSignalSpy triggered(&shortcut, &QShortcut::activated);
        QMenuBar bar(&window);
        QAction* command = bar.addMenu(QStringLiteral("File"))->addAction(QStringLiteral("Import"));
        command->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_I));
        bar.show();
        QSignalSpy commanded(command, &QAction::triggered);
        kit::Sheet sheet(window);
        QLineEdit* first = nullptr;
        QPushButton* second = nullptr;
        sheet.setContent(contentWith(first, second));
        QSignalSpy clicked(second, &QPushButton::clicked);
        second->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_J));
        sheet.showSheet();
        QCOMPARE(window.focusWidget(), first);
        QTest::keyClick(first, Qt::Key_Tab);
        QCOMPARE(window.focusWidget(), second);
        QTest::keyClick(second, Qt::Key_Tab);
        QCOMPARE(window.focusWidget(), first);
        QTest::keyClick(first, Qt::Key_Backtab);
        QCOMPARE(window.focusWidget(), second);
        window.field->setFocus();
        QVERIFY(!window.field->hasFocus());
        QTest::keyClick(first, Qt::Key_D, Qt::ControlModifier);
        QTest::keyClick(first, Qt::Key_I, Qt::ControlModifier);
        QTest::keyClick(first, Qt::Key_J, Qt::ControlModifier);
        QCOMPARE(triggered.count(), 0);
        QCOMPARE(commanded.count(), 0);
        QTRY_COMPARE(clicked.count(), 1);
        sheet.endSheet();
        QTest::keyClick(&window, Qt::Key_D, Qt::ControlModifier);
        QTest::keyClick(&window, Qt::Key_I, Qt::ControlModifier);
        QCOMPARE(triggered.count(), 1);
        QCOMPARE(commanded.count(), 1);
    }

    void keepsTheMouse()
    {
        Window window;
        QSignalSpy clicked(window.button, &QPushButton::clicked);
        kit::Sheet sheet(window);
        sheet.setContent(new QWidget);
        sheet.showSheet();
        QCOMPARE(window.childAt(window.button->geometry().center()), &sheet);
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, window.button->geometry().center());
        QCOMPARE(clicked.count(), 0);
        sheet.endSheet();
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, window.button->geometry().center());
        QCOMPARE(clicked.count(), 1);
    }

    void endsOnceAndGivesFocusBack()
    {
        Window window;
        kit::Sheet sheet(window);
        QLineEdit* first = nullptr;
        QPushButton* second = nullptr;
        sheet.setContent(contentWith(first, second));
        QSignalSpy ended(&sheet, &kit::Sheet::ended);
        sheet.endSheet();
        QCOMPARE(ended.count(), 0);
        sheet.showSheet();
        sheet.endSheet();
        sheet.endSheet();
        QCOMPARE(ended.count(), 1);
        QVERIFY(!kit::Sheet::isAttachedTo(window));
        QCOMPARE(window.focusWidget(), window.field);
    }

    void survivesContentAndFocusThatDie()
    {
        Window window;
        kit::Sheet sheet(window);
        auto* content = new QWidget;
        sheet.setContent(content);
        sheet.showSheet();
        delete content;
        delete window.field;
        window.resize(500, 300);
        sheet.endSheet();
        QVERIFY(!kit::Sheet::isAttachedTo(window));
    }

    void progressPanel_data()
    {
        QTest::addColumn<int>("given");
        QTest::addColumn<int>("shown");
        QTest::newRow("within") << 40 << 40;
        QTest::newRow("negative") << -5 << 0;
        QTest::newRow("beyond") << 250 << 100;
    }
    void progressPanel()
    {
        QFETCH(int, given);
        Window window;
        kit::ProgressPanel panel(window);
        panel.begin(QStringLiteral("Deleting"));
        QVERIFY(kit::Sheet::isAttachedTo(window));
        panel.update({}, given);
        QTEST(panel.view()->value(), "shown");
        QCOMPARE(panel.view()->text(), QStringLiteral("Deleting"));
        panel.update(QStringLiteral("Sorting"), given);
        QCOMPARE(panel.view()->text(), QStringLiteral("Sorting"));
        panel.end();
        QVERIFY(!kit::Sheet::isAttachedTo(window));
        panel.begin(QStringLiteral("Again"));
        QCOMPARE(panel.view()->value(), 0);
    }

    void progressPanelOutlivesItsWindow()
    {
        auto window = std::make_unique<Window>();
        kit::ProgressPanel panel(*window);
        panel.begin(QStringLiteral("Working"));
        window.reset();
        panel.update({}, 50);
        panel.end();
        QVERIFY(panel.view() == nullptr);
    }

    void spinnerOverlay()
    {
        Window window;
        kit::SpinnerOverlay overlay(window);
        overlay.updateAlertViewMessage(QStringLiteral("too early"));
        QCOMPARE(overlay.message(), QString());
        overlay.showAlertView(true, QStringLiteral("First"));
        overlay.showAlertView(true, QStringLiteral("Second"));
        QVERIFY(overlay.isUp());
        QCOMPARE(overlay.message(), QStringLiteral("Second"));
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
