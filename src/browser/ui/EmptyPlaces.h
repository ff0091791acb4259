#pragma once

#include "browser/EmptyState.h"

#include <QObject>

class QLabel;
class QWidget;

namespace mosaro::browser {

/// The two things that may lie over an empty grid: the invitation to import, and a line that says why it is
/// empty.
class EmptyPlaces : public QObject {
    Q_OBJECT

public:
    /// Covers `surface` and follows its size.
    explicit EmptyPlaces(QWidget& surface);

    void show(const EmptyState& state);
    void hideAll();
    [[nodiscard]] bool showsDropZone() const;
    [[nodiscard]] QString guide() const;

Q_SIGNALS:
    void importRequested();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void place();

    QWidget& m_surface;
    QWidget* m_dropZone;
    QLabel* m_guide;
};

} // namespace mosaro::browser
