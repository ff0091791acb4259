#pragma once

#include <QPointer>
#include <QVariantAnimation>
#include <QWidget>

namespace mosaro::kit {

/// A coloured pane over the whole of a window that keeps mouse and keyboard off what lies below, and fades in
/// and out.
class Overlay : public QWidget {
    Q_OBJECT

public:
    /// `fill` as it is laid on the window at full strength.
    Overlay(QWidget& window, const QColor& fill, qreal shownAlpha);

    /// While one is up, a second call changes nothing.
    void showOverlay();
    void hideOverlay();
    /// Up, or on its way up.
    [[nodiscard]] bool isUp() const { return m_up; }

Q_SIGNALS:
    /// Faded out; the window has the focus again.
    void gone();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void resizeEvent(QResizeEvent* event) override;
    /// What fills the overlay while it is shown.
    void setHosted(QWidget* hosted);
    [[nodiscard]] QWidget* hosted() const { return m_hosted; }

private:
    void fadeTo(qreal alpha);
    void takeAway();

    QWidget& m_window;
    QColor m_fill;
    qreal m_shownAlpha;
    bool m_up = false;
    QVariantAnimation m_fade;
    QPointer<QWidget> m_hosted;
    QPointer<QWidget> m_focusBefore;
};

} // namespace mosaro::kit
