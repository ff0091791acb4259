#pragma once

#include <QWidget>
#include <functional>

class QLineEdit;
class QMenu;
class QToolButton;

namespace mosaro::browser {

enum class SearchKey { Cancel, Up, Down, Return };

/// The search field of the head line: a magnifier that opens the menu of choices, the text, and a button that
/// empties it.
class SearchField : public QWidget {
    Q_OBJECT

public:
    explicit SearchField(QWidget* parent = nullptr);

    [[nodiscard]] QString text() const;
    /// Puts the caret at the end. Tells of the change as if it were typed.
    void setText(const QString& text);
    void setPlaceholder(const QString& text);
    void placeCaretAtEnd();
    /// Not owned.
    void setTemplateMenu(QMenu& menu);
    /// Asked before the field's own handling of a key; true takes the key.
    void setKeyHandler(std::function<bool(SearchKey)> handler) { m_handler = std::move(handler); }

    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    void textChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QToolButton* m_magnifier;
    QLineEdit* m_edit;
    QToolButton* m_clear;
    std::function<bool(SearchKey)> m_handler;
};

} // namespace mosaro::browser
