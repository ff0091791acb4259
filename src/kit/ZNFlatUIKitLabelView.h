#pragma once

#include <QStringList>
#include <QWidget>
#include <vector>

class QAction;
class QLabel;
class QMenu;

namespace mosaro::kit {

class LabelButton;

/// A row of colour labels to choose from: none and seven colours, as it stands in menus. The arrow keys go
/// along it, Space and Return choose.
class ZNFlatUIKitLabelView : public QWidget {
    Q_OBJECT

public:
    explicit ZNFlatUIKitLabelView(const QString& title, QWidget* parent = nullptr);

    /// What the eight are called, for tool tips and for those who cannot see them.
    void setNames(const QStringList& names);
    /// The label that was chosen last, 0 to 7.
    [[nodiscard]] int labelValue() const { return m_labelValue; }
    /// Marks the labels that occur, as decimal texts: one is on, several are mixed.
    void activeSelection(const QStringList& labels);

Q_SIGNALS:
    /// The user chose a label. Menus around the row are closed by then.
    void didChangeLabelValue(int label);

private:
    void choose(int label);
    void showName(int label);

    QString m_title;
    QLabel* m_caption;
    std::vector<LabelButton*> m_buttons;
    QStringList m_names;
    int m_labelValue = 0;
};

/// Puts the row at the end of a menu; the menu owns it.
QAction* addLabelRow(QMenu& menu, ZNFlatUIKitLabelView* row);

} // namespace mosaro::kit
