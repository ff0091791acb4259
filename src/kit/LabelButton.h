#pragma once

#include <QAbstractButton>

namespace mosaro::kit {

/// One choice of a row of labels: a dot in the label's colour, or a struck-out circle for none.
class LabelButton : public QAbstractButton {
    Q_OBJECT

public:
    enum class Mark { Off, On, Mixed };

    explicit LabelButton(int label, QWidget* parent = nullptr);

    void setMark(Mark mark);
    [[nodiscard]] Mark mark() const { return m_mark; }
    [[nodiscard]] QSize sizeHint() const override { return {26, 26}; }

Q_SIGNALS:
    /// The mouse or the keyboard is here now, or no longer.
    void pointedAt(bool here);
    /// The keyboard goes to the button before (-1) or after (1) this one.
    void leftFor(int step);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void paintNone(QPainter& painter, const QRectF& dot) const;

    int m_label;
    Mark m_mark = Mark::Off;
};

} // namespace mosaro::kit
