#pragma once

#include "organisation/MediaSearch.h"
#include "organisation/ui/SmartRuleView.h"

#include <QTimer>
#include <QVariantList>
#include <vector>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QScrollArea;
class QVBoxLayout;

namespace mosaro::base {
class NotificationBus;
}

namespace mosaro::organisation {

class MRSmartRuleItem;

/// Return codes of the sheet, the tags of its buttons.
inline constexpr int kSmartSheetCancelled = 2000;
inline constexpr int kSmartSheetSaved = 3000;

/// The editor of a smart collection: title, whether any or all rules must hold, and 1 to 15 rules. Says as
/// well how many items the rules find just now. The content of a sheet.
class MRSmartRuleEditor : public QWidget {
    Q_OBJECT

public:
    static constexpr int kMostRules = 15;

    MRSmartRuleEditor(const SmartRuleEnvironment& environment, base::NotificationBus& bus,
                      const QString& title, bool ruleCondition, const QVariantList& rules, bool isEdit,
                      QWidget* parent = nullptr);
    ~MRSmartRuleEditor() override;

    /// Title, match condition and rules, as SmartRules.h names them.
    [[nodiscard]] QVariantMap result() const;
    [[nodiscard]] bool isEditing() const { return m_isEditingMode; }
    [[nodiscard]] QSize sizeHint() const override;

    void addRule();
    void deleteRule(MRSmartRuleItem* row);

Q_SIGNALS:
    /// With one of the return codes.
    void closeSheet(int returnCode);

protected:
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    [[nodiscard]] QWidget* makeHead();
    [[nodiscard]] QWidget* makeRuleList();
    [[nodiscard]] QWidget* makeFoot();
    [[nodiscard]] QPushButton* makeButton(const char* titleKey, int returnCode);
    MRSmartRuleItem* addRow(const QVariantMap& rule);
    void rulesChanged();
    void orderTabs();
    void checkAddRulButtonInItem();
    void countMatches();

    SmartRuleEnvironment m_environment;
    base::NotificationBus& m_bus;
    MediaSearch m_search;
    bool m_isEditingMode;
    std::vector<MRSmartRuleItem*> m_rows;
    QLineEdit* m_titleField = nullptr;
    QComboBox* m_conditionPopupBtn = nullptr;
    QLabel* m_totalLabel = nullptr;
    QLabel* m_matchLabel = nullptr;
    QScrollArea* m_ruleCollectionView = nullptr;
    QVBoxLayout* m_ruleColumn = nullptr;
    QPushButton* m_cancelBtn = nullptr;
    QPushButton* m_saveBtn = nullptr;
    QTimer m_countDelay;
};

} // namespace mosaro::organisation
