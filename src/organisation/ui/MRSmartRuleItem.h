#pragma once

#include "organisation/ui/SmartRuleView.h"

class QComboBox;

namespace mosaro::kit {
class IconButton;
}

namespace mosaro::organisation {

/// One rule of the editor: its type, the values of that type, and buttons that add a rule or take this one
/// away. Holds the rule's record.
class MRSmartRuleItem : public QWidget {
    Q_OBJECT

public:
    MRSmartRuleItem(QVariantMap rule, const SmartRuleEnvironment& environment, QWidget* parent);

    /// The record as it is now.
    [[nodiscard]] const QVariantMap& representedObject() const { return m_representedObject; }
    void setCanAdd(bool can);
    void setCanDelete(bool can);
    /// After a row beside it is gone by its button; the type has the keyboard when the button is off.
    void focusDeleteButton();
    /// Puts the row's controls behind a widget in the order of the Tab key; gives the last of them.
    [[nodiscard]] QWidget* continueTabOrder(QWidget* before);

Q_SIGNALS:
    void changed();
    /// Another type came with other controls.
    void controlsChanged();
    void addRequested();
    void deleteRequested();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] QList<QWidget*> controls() const;
    void keepFromWheel(QWidget& control);
    void makePopUp();
    void changeSmartRule();
    void createSmartRuleElementView();

    QVariantMap m_representedObject;
    SmartRuleEnvironment m_environment;
    QComboBox* m_popUpBtn;
    QWidget* m_placeHolderView;
    SmartRuleView* m_valueView = nullptr;
    kit::IconButton* m_addRuleBtn;
    kit::IconButton* m_deleteRuleBtn;
};

} // namespace mosaro::organisation
