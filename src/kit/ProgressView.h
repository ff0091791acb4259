#pragma once

#include <QWidget>

class QLabel;
class QProgressBar;

namespace mosaro::kit {

/// A line of text over a bar from 0 to 100, as the content of a sheet.
class ProgressView : public QWidget {
    Q_OBJECT

public:
    explicit ProgressView(QWidget* parent = nullptr);

    /// Empty text, bar at 0.
    void setupProgressElements();
    /// An empty text keeps the one on show; a negative value counts as 0.
    void updateProgress(const QString& text, double value);

    [[nodiscard]] QString text() const;
    [[nodiscard]] int value() const;

private:
    QLabel* m_text;
    QProgressBar* m_bar;
};

} // namespace mosaro::kit
