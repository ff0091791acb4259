#pragma once

#include <QListView>

namespace mosaro::organisation {

class TagCheckModel;

/// The list of the panel that assigns tags: a box, a title and a colour in each row. No row is ever selected,
/// and only the boxes act; the keyboard goes from row to row and clicks with the space bar.
class TagCheckList : public QListView {
    Q_OBJECT

public:
    TagCheckList(TagCheckModel& model, const QString& guideText, QWidget* parent = nullptr);

    /// The current row is marked: the keyboard was used last.
    [[nodiscard]] bool isByKeyboard() const { return m_isByKeyboard; }

protected:
    void focusInEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void toggle(const QModelIndex& index);
    void setByKeyboard(bool byKeyboard);

    TagCheckModel& m_tags;
    QString m_guideText;
    bool m_isByKeyboard = false;
};

} // namespace mosaro::organisation
