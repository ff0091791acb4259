#pragma once

#include <QWidget>

class QLabel;
class QSlider;
class QToolButton;

namespace mosaro::browser {

/// The row below the grid: the count line and the zoom.
class StatusRow : public QWidget {
    Q_OBJECT

public:
    explicit StatusRow(QWidget* parent = nullptr);

    void setCountLine(const QString& text);
    /// Emits nothing.
    void setZoom(double zoom);
    /// The controls are of use only while there are items.
    void setControlsVisible(bool visible);

Q_SIGNALS:
    void zoomChosen(double zoom);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QToolButton* makeButton(const QString& icon, const QString& hint);

    QLabel* m_count;
    QWidget* m_controls;
    QSlider* m_slider;
};

} // namespace mosaro::browser
