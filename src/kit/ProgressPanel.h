#pragma once

#include "base/Ports.h"

#include <QPointer>
#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;

namespace mosaro::kit {

class Sheet;

/// A line of text over a bar from 0 to 100, as the content of a sheet.
class ProgressPanel : public QWidget {
    Q_OBJECT

public:
    explicit ProgressPanel(QWidget* parent = nullptr);

    /// Empty text, bar at 0.
    void setupProgressElements();
    /// An empty text keeps the one on show; a negative value counts as 0.
    void updateProgressPanel(const QString& text, double value);
    void setStoppable(bool stoppable);

    [[nodiscard]] QString text() const;
    [[nodiscard]] int value() const;

Q_SIGNALS:
    void stopRequested();

private:
    QLabel* m_text;
    QProgressBar* m_bar;
    QPushButton* m_stop;
};

/// The progress sheet of one window.
class SheetProgress : public QObject, public base::ProgressSink {
    Q_OBJECT

public:
    explicit SheetProgress(QWidget& window);

    void begin(const QString& text) override;
    void update(const QString& text, int percent) override;
    void end() override;

    [[nodiscard]] ProgressPanel& panel() { return *m_panel; }

private:
    Sheet* m_sheet;         ///< Child of the window.
    ProgressPanel* m_panel; ///< Child of the sheet.
};

} // namespace mosaro::kit
