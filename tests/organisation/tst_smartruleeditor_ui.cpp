#include "base/NotificationBus.h"
#include "organisation/SmartRules.h"
#include "organisation/ui/MRSmartRuleEditor.h"
#include "organisation/ui/MRSmartRuleItem.h"
#include "support/TemporaryLibrary.h"
#include "support/WindowTest.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QSignalSpy>
#include <QToolButton>

using namespace Qt::StringLiterals;
using namespace mosaro;
using namespace mosaro::organisation;

namespace {

const QVariant kNone;
const QDateTime kDay = QDate(2024, 2, 29).startOfDay();

/// The parts of a rule besides its type.
QVariantMap parts(const QVariant& condition, const QVariant& value = kNone, const QVariant& other = kNone)
{
    QVariantMap record{
        {SMART_KEY_CONDITION, condition}, {SMART_KEY_DEFAULT_VALUE, value}, {SMART_KEY_OTHER_VALUE, other}};
    erase_if(record, [](const QVariantMap::iterator& part) { return !part->isValid(); });
    return record;
}

QVariantMap rule(int type, const QVariantMap& values = {})
{
    QVariantMap record = values;
    record.insert(SMART_KEY_RULE_TYPE, type);
    return record;
}

struct Sheet {
    test::TemporaryLibrary library;
    base::NotificationBus bus;
    std::unique_ptr<MRSmartRuleEditor> editor;

    void open(const QVariantList& rules = {}, bool all = false)
    {
        editor = std::make_unique<MRSmartRuleEditor>(
            SmartRuleEnvironment{library.manager(), library.defaults()}, bus, u"Logos"_s, all, rules, false);
        editor->show();
    }
    QList<MRSmartRuleItem*> rows() const
    {
        QList<MRSmartRuleItem*> shown = editor->findChildren<MRSmartRuleItem*>();
        erase_if(shown, [](const MRSmartRuleItem* row) { return row->isHidden(); });
        return shown;
    }
    MRSmartRuleItem& first() const { return *rows().constFirst(); }
    /// The first rule's record as it would be saved, without its type.
    QVariantMap values() const
    {
        QVariantMap record = editor->result().value(SMART_COLLECTION_RULES).toList().at(0).toMap();
        record.remove(SMART_KEY_RULE_TYPE);
        return record;
    }
    static QToolButton& button(const MRSmartRuleItem& row, bool add)
    {
        return *row.findChildren<QToolButton*>().at(add ? 0 : 1);
    }
};

} // namespace

class TestSmartRuleEditor : public test::WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void startsWithOneRule()
    {
        Sheet sheet;
        sheet.open();
        QTRY_COMPARE(sheet.rows().size(), 1);
        QVERIFY(!Sheet::button(sheet.first(), false).isEnabled());
        const QVariantMap result = sheet.editor->result();
        QCOMPARE(result.value(SMART_COLLECTION_TITLE).toString(), u"Logos"_s);
        QCOMPARE(result.value(SMART_COLLECTION_MATCH_CONDITION).toInt(), 0);
        QVERIFY(isValidSmartCollection(result));
    }

    /// A fresh rule of each type has its values at once, and a stored one keeps them.
    void fillsRecords()
    {
        const QVariantMap stored = parts(2, u"12"_s);
        const QVariantMap size = parts(2, u"12"_s, 1000000);
        const std::tuple<const char*, QVariantMap, QVariantMap> rows[] = {
            {"text", rule(0), parts(0, QString())},
            {"a reserved type", rule(14), parts(0, QString())},
            {"stored text", rule(7, stored), stored},
            {"file type", rule(2), parts(kNone, u"gif"_s)},
            {"stored size", rule(3, size), size},
            {"label", rule(16), parts(kNone, 0)},
            {"yes", rule(18, parts(kNone, 1)), parts(kNone, 1)},
            {"rating", rule(21), parts(0, 0.0)},
            {"a tag without tags", rule(20), parts(1)},
            {"a day has no end", rule(4, parts(1, kDay, kDay)), parts(1, kDay)},
            {"a range has one", rule(4, parts(3, kDay, kDay)), parts(3, kDay, kDay)},
        };
        for (const auto& [name, record, values] : rows) {
            Sheet sheet;
            sheet.open({record});
            QVERIFY2(sheet.values() == values, name);
        }
    }

    void aChangeOfTypeDropsTheValues()
    {
        Sheet sheet;
        sheet.open({rule(4, parts(3, kDay))});
        auto* types = sheet.first().findChild<QComboBox*>();
        types->setCurrentIndex(0);
        Q_EMIT types->activated(0);
        QCOMPARE(sheet.values(), parts(0, QString()));
    }

    void holdsOneToFifteenRules()
    {
        Sheet sheet;
        sheet.open({rule(0)});
        for (int count = 1; count < MRSmartRuleEditor::kMostRules; ++count)
            Sheet::button(sheet.first(), true).click();
        QCOMPARE(sheet.rows().size(), 15);
        for (const MRSmartRuleItem* row : sheet.rows())
            QVERIFY(!Sheet::button(*row, true).isEnabled());
        Sheet::button(sheet.first(), false).click();
        QCOMPARE(sheet.rows().size(), 14);
        QVERIFY(Sheet::button(*sheet.rows().constLast(), true).isEnabled());
    }

    /// Stepping to a condition leaves the keyboard there; the wheel changes nothing on its way.
    void conditionsByKeysAndWheel()
    {
        Sheet sheet;
        sheet.open({rule(4, parts(0, kDay))});
        const auto popUps = sheet.first().findChildren<QComboBox*>();
        popUps[1]->setFocus();
        QTest::keyClick(popUps[1], Qt::Key_Down);
        QTest::keyClick(popUps[1], Qt::Key_Down);
        QCOMPARE(sheet.editor->focusWidget(), popUps[1]);
        const QList<QWidget*> passed{popUps[0], popUps[1], sheet.first().findChild<QDateEdit*>()};
        for (QWidget* control : passed) {
            QWheelEvent turn({5, 5}, {5, 5}, {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(control, &turn);
            QVERIFY(!turn.isAccepted());
        }
        QCOMPARE(sheet.values(), parts(2, kDay));
        popUps[1]->showPopup();
        QTest::keyClick(popUps[1]->view(), Qt::Key_Down);
        QTest::keyClick(popUps[1]->view(), Qt::Key_Return);
        QCOMPARE(sheet.editor->focusWidget(), passed[2]);
    }

    void returnPressesTheButtonThatHasTheKeyboard()
    {
        Sheet sheet;
        sheet.open({rule(0), rule(8), rule(16)});
        QSignalSpy closed(sheet.editor.get(), &MRSmartRuleEditor::closeSheet);
        QToolButton* first = &Sheet::button(sheet.first(), false);
        for (const int left : {2, 1}) {
            first->setFocus();
            QTest::keyClick(first, Qt::Key_Return);
            QCOMPARE(sheet.rows().size(), left);
            const MRSmartRuleItem& row = sheet.first();
            first = &Sheet::button(row, false);
            QCOMPARE(sheet.editor->focusWidget(),
                     left > 1 ? static_cast<QWidget*>(first) : row.findChild<QComboBox*>());
        }
        QVERIFY(closed.isEmpty());
    }

    void longTitlesFitIntoTheirRow()
    {
        Sheet sheet;
        sheet.library.addTag(QString(300, u'M'));
        sheet.open({rule(20), rule(4, parts(3))});
        sheet.editor->resize(sheet.editor->minimumSize());
        for (const MRSmartRuleItem* row : sheet.rows())
            QVERIFY(row->minimumSizeHint().width() < sheet.editor->width() - 2 * kit::metric::gap);
    }

    void numbersOnly()
    {
        Sheet sheet;
        sheet.open({rule(8)});
        QTest::keyClicks(sheet.first().findChild<QLineEdit*>(), u"1a2.5"_s);
        QCOMPARE(sheet.values().value(SMART_KEY_DEFAULT_VALUE).toString(), u"125"_s);
    }

    void returnSavesUnlessThereIsNoTitle()
    {
        Sheet sheet;
        sheet.open({rule(0)});
        QSignalSpy closed(sheet.editor.get(), &MRSmartRuleEditor::closeSheet);
        auto* title = sheet.editor->findChild<QLineEdit*>();
        title->clear();
        QTest::keyClick(title, Qt::Key_Return);
        QVERIFY(closed.isEmpty());
        title->setText(u"Marks"_s);
        QTest::keyClick(title, Qt::Key_Return);
        QCOMPARE(closed.value(0).value(0).toInt(), kSmartSheetSaved);
        QTest::keyClick(title, Qt::Key_Escape);
        QCOMPARE(closed.value(1).value(0).toInt(), kSmartSheetCancelled);
    }
};

QTEST_MAIN(TestSmartRuleEditor)
#include "tst_smartruleeditor_ui.moc"
