#pragma once

#include "browser/EmptyState.h"

#include <QObject>

class QLabel;
class QWidget;

namespace mosaro::browser {

class DropZone;

/// The two things that may lie over an empty grid: the invitation to import, and a line that says why it is
/// empty.
class EmptyPlaces : public QObject {
    Q_OBJECT

public:
    /// Covers `surface` and follows its size.
    explicit EmptyPlaces(QWidget& surface);

    /// `takesDrops`: files can be dropped here, and not only be imported with the button.
    void show(const EmptyState& state, bool takesDrops);
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
    DropZone* m_dropZone;
    QLabel* m_guide;
};

} // namespace mosaro::browser
