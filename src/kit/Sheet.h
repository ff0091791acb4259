#pragma once

#include <QPointer>
#include <QWidget>

namespace mosaro::kit {

/// A panel attached to a window, kit::metric::sheetTop below its top edge, over a scrim that keeps the rest
/// of the window from the mouse and the keyboard. Owns its content once shown; stays centred as the window
/// changes.
class Sheet : public QWidget {
    Q_OBJECT

public:
    explicit Sheet(QWidget& window);
    ~Sheet() override;

    void setContent(QWidget* content);
    void showSheet();
    /// Hides, gives focus back and emits ended().
    void endSheet();

    /// Whether any sheet is up on the window.
    [[nodiscard]] static bool isAttachedTo(const QWidget& window);

Q_SIGNALS:
    void ended();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void place();
    /// Whether a shortcut, an action or a widget that has a key belongs to what the sheet shows.
    [[nodiscard]] bool ownsShortcutOf(const QObject& receiver) const;

    QWidget& m_window;
    QPointer<QWidget> m_content;
    QPointer<QWidget> m_focusBefore;
};

} // namespace mosaro::kit
