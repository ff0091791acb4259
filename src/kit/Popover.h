#pragma once

#include <QPointer>
#include <QWidget>

namespace mosaro::kit {

/// A floating panel below an anchor, with an arrow that points at it. It lies within the anchor's window and
/// takes no focus of its own, so that a field can go on being typed in. It follows the anchor. Transient: a
/// press of the mouse elsewhere closes it, and so does the anchor's hiding.
class Popover : public QWidget {
    Q_OBJECT

public:
    /// Hidden at first. The content is taken as a child, and given back to nobody: whoever wants to keep it
    /// takes it out with takeContent(). It has the size that it hints at.
    Popover(QWidget& anchor, QWidget& content);
    ~Popover() override;

    void open();
    [[nodiscard]] QWidget* takeContent();

Q_SIGNALS:
    /// It was closed from outside.
    void closed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void place();
    void dismiss();
    [[nodiscard]] bool carriesAnchor(const QObject* moved) const;
    [[nodiscard]] bool isOutside(const QObject* pressed) const;

    QPointer<QWidget> m_anchor;
    QPointer<QWidget> m_content;
    int m_arrowX = 0; ///< Middle of the arrow.
};

} // namespace mosaro::kit
