#pragma once

#include "organisation/SmartRules.h"

#include <QVariantMap>
#include <QWidget>

class QComboBox;
class QHBoxLayout;

namespace mosaro::base {
class ZNUserDefaults;
}
namespace mosaro::store {
class ZNDBManager;
}

namespace mosaro::organisation {

/// The values of a rule beside the pop-up of its type: reads them from the rule's record and writes each
/// change there at once. A record without values gets those that the controls start with.
class SmartRuleView : public QWidget {
    Q_OBJECT

public:
    /// Fills the controls from the record, then writes them back.
    void parseValues();

Q_SIGNALS:
    void changed();

protected:
    SmartRuleView(SmartRuleFamily family, QVariantMap& values, QWidget* parent);

    /// The record to the controls.
    virtual void readValues() = 0;
    /// The controls to the record.
    virtual void writeValues() = 0;
    /// To be connected to each control.
    void updateValues();

    [[nodiscard]] QVariantMap& values() const { return m_values; }
    [[nodiscard]] QHBoxLayout& row() const { return *m_row; }
    /// A pop-up with the conditions of the family; choosing one from its menu gives `activeResponder` the
    /// keyboard.
    [[nodiscard]] QComboBox* addConditions();
    [[nodiscard]] QComboBox* addPopUp(const char* toolTipKey);
    void setActiveResponder(QWidget* widget) { m_activeResponder = widget; }
    /// Chooses the item with the number that the record has under a key; the first when there is none.
    void chooseStored(QComboBox& popUp, QLatin1String key) const;

private:
    QComboBox* addPopUp(QComboBox* popUp, const char* toolTipKey);

    SmartRuleFamily m_family;
    QVariantMap& m_values;
    QHBoxLayout* m_row;
    QWidget* m_activeResponder = nullptr;
};

/// What some of the views look up.
struct SmartRuleEnvironment {
    store::ZNDBManager& library;
    base::ZNUserDefaults& defaults;
};

/// The view for a type of rule, not filled yet; null where a type has none. The record must outlive it.
[[nodiscard]] SmartRuleView* makeSmartRuleView(qint64 type, QVariantMap& values,
                                               const SmartRuleEnvironment& environment, QWidget* parent);

} // namespace mosaro::organisation
