#pragma once

#include "import/ImportRun.h"

#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;

namespace mosaro::importing {

class PreviewWell;
class SwatchRow;

/// The content of the sheet that is up while files come in: which file, how far, its picture and its colours.
class ImportSheet : public QWidget {
    Q_OBJECT

public:
    explicit ImportSheet(QWidget* parent = nullptr);

    /// Before the walk: no file yet, `total` to come.
    void resetProgress(int total);
    void showProgress(const mosaro::importing::ImportProgress& progress);

    [[nodiscard]] QString text() const;
    [[nodiscard]] int percent() const;

Q_SIGNALS:
    /// Once for each press; the button then waits for the run to end.
    void stopRequested();

private:
    void showStopping();

    QLabel* m_text;
    QProgressBar* m_bar;
    QLabel* m_percent;
    QLabel* m_count;
    PreviewWell* m_well;
    SwatchRow* m_swatches;
    QPushButton* m_stop;
};

} // namespace mosaro::importing
