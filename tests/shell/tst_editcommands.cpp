#include "shell/EditCommands.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QtTest>

using namespace Qt::StringLiterals;
using namespace mosaro::shell;

class TestEditCommands : public QObject {
    Q_OBJECT

private Q_SLOTS:
    /// A text field comes first; then the pane that has the keyboard, or nothing.
    void pasteGoesToWhoHasTheKeyboard()
    {
        QWidget window;
        QWidget left(&window);
        QWidget right(&window);
        QPushButton inLeft(&left);
        QPushButton inRight(&right);
        QPushButton outside(&window);
        QLineEdit field(&left);
        QString pasted;
        const EditCommands::Grid grid{[] {}, [] {}};
        EditCommands commands(
            grid, {{&left, [&](const QMimeData& data) { pasted += u"left:"_s + data.text(); }},
                   {&right, [&](const QMimeData& data) { pasted += u"right:"_s + data.text(); }}});
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QApplication::clipboard()->setText(u"A"_s);

        const std::tuple<QWidget*, bool, QString> cases[] = {{&inLeft, true, u"left:A"_s},
                                                             {&inRight, true, u"right:A"_s},
                                                             {&outside, false, QString()},
                                                             {&field, true, QString()}};
        for (const auto& [focus, possible, expected] : cases) {
            pasted.clear();
            focus->setFocus();
            QCOMPARE(commands.validate(Command::Paste), possible);
            commands.perform(Command::Paste);
            QCOMPARE(pasted, expected);
        }
        QCOMPARE(field.text(), u"A"_s);
    }
};

QTEST_MAIN(TestEditCommands)
#include "tst_editcommands.moc"
