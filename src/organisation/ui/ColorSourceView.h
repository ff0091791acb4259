#pragma once

#include <QWidget>

class QCheckBox;
class QToolButton;
class QVariantAnimation;

namespace mosaro::base {
class ZNUserDefaults;
}

namespace mosaro::organisation {

/// The colours tab: the grid, and below it the view options, which can be put away.
class ColorSourceView : public QWidget {
    Q_OBJECT

public:
    /// Takes the grid as its child.
    ColorSourceView(QWidget& grid, base::ZNUserDefaults& defaults, QWidget* parent);

    [[nodiscard]] bool showsViewOptions() const;
    void toggleViewOptions();

Q_SIGNALS:
    /// One of the options was switched; its preference is stored.
    void optionsChanged();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void addOptions();
    void updateButton();
    void slideTo(int raised);
    void place();

    QWidget& m_grid;
    base::ZNUserDefaults& m_defaults;
    QToolButton* m_button;
    QWidget* m_area;
    QVariantAnimation* m_slide;
    int m_raised = 0; ///< How much of the area is in sight.
};

} // namespace mosaro::organisation
