#pragma once

#include <QWidget>
#include <functional>

class QLabel;
class QProgressBar;
class QPushButton;

namespace mosaro::kit {

/// A line of text over a bar from 0 to 100, as the content of a sheet; with a button that stops the work,
/// where that can be stopped.
class ProgressView : public QWidget {
    Q_OBJECT

public:
    explicit ProgressView(QWidget* parent = nullptr);

    /// Empty text, bar at 0, no button.
    void setupProgressElements();
    /// An empty text keeps the one on show; a negative value counts as 0.
    void updateProgress(const QString& text, double value);

    /// The button, also by the Escape key, calls `stop`; pressed once, it waits for the end. Null hides it.
    void offerStop(std::function<void()> stop, const QString& toolTip);

    /// As high as the text is long.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QString text() const;
    [[nodiscard]] int value() const;

private:
    void stop();

    QLabel* m_text;
    QProgressBar* m_bar;
    QPushButton* m_stopBtn;
    std::function<void()> m_stop;
};

} // namespace mosaro::kit
