#include "shell/SplitView.h"

#include "base/Text.h"
#include "kit/Look.h"
#include "shell/SplitRules.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QVariantAnimation>

namespace mosaro::shell {

namespace {
constexpr int kGripWidth = 7;
constexpr int kKeyStep = 10;
constexpr int kSlideTime = 200;
} // namespace

/// The grip over the line: wider than the line, drawn only while it has the keyboard.
class SplitDivider : public QWidget {
public:
    explicit SplitDivider(SplitView& view) : QWidget(&view), m_view(view)
    {
        setCursor(Qt::SplitHCursor);
        setFocusPolicy(Qt::TabFocus);
        setAccessibleName(base::text("Accessible.Divider"));
        setToolTip(base::text("Tooltip.Divider"));
    }

protected:
    void mousePressEvent(QMouseEvent* event) override
    {
        event->setAccepted(event->button() == Qt::LeftButton);
    }
    void mouseMoveEvent(QMouseEvent* event) override
    {
        m_view.moveDivider(mapTo(&m_view, event->position().toPoint()).x());
    }
    void keyPressEvent(QKeyEvent* event) override
    {
        if (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right) {
            m_view.moveDivider(m_view.sidebarWidth() + (event->key() == Qt::Key_Left ? -kKeyStep : kKeyStep));
            return;
        }
        QWidget::keyPressEvent(event);
    }
    void paintEvent(QPaintEvent*) override
    {
        if (hasFocus()) {
            QPainter(this).fillRect((width() - kit::metric::focusRing) / 2, 0, kit::metric::focusRing,
                                    height(), kit::color::blue);
        }
    }

private:
    SplitView& m_view;
};

SplitView::SplitView(QWidget* parent)
    : QWidget(parent), m_divider(new SplitDivider(*this)), m_slideMotion(new QVariantAnimation(this)),
      m_sidebarWidth(kDefaultSidebarWidth)
{
    m_slideMotion->setEasingCurve(QEasingCurve::OutCubic);
    connect(m_slideMotion, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
        m_slide = value.toInt();
        placePanes();
    });
    connect(m_slideMotion, &QVariantAnimation::finished, this, [this] {
        placePanes();
        Q_EMIT panesAdjusted();
    });
}

SplitView::~SplitView() = default;

void SplitView::setPanes(QWidget* sidebar, QWidget* browser)
{
    m_sidebar = sidebar;
    m_browser = browser;
    m_sidebar->setParent(this);
    m_browser->setParent(this);
    m_sidebar->show();
    m_browser->show();
    m_divider->raise();
    placePanes();
}

void SplitView::setSidebarHidden(bool hidden, bool animated)
{
    const int target = hidden ? m_sidebarWidth + kDividerWidth : 0;
    m_sidebarHidden = hidden;
    m_slideMotion->stop();
    const int time = animated ? kit::motion(kSlideTime) : 0;
    if (time == 0 || !isVisible()) {
        m_slide = target;
        placePanes();
        Q_EMIT panesAdjusted();
        return;
    }
    m_slideMotion->setDuration(time);
    m_slideMotion->setStartValue(m_slide);
    m_slideMotion->setEndValue(target);
    m_slideMotion->start();
}

void SplitView::moveDivider(int x)
{
    if (m_sidebarHidden) {
        return;
    }
    const int wanted = draggedSidebarWidth(x, width());
    if (wanted == m_sidebarWidth) {
        return;
    }
    m_sidebarWidth = wanted;
    placePanes();
    Q_EMIT panesAdjusted();
}

void SplitView::placePanes()
{
    if (m_sidebar == nullptr) {
        return;
    }
    const int left = m_sidebarWidth + kDividerWidth - m_slide;
    const bool isAway = left <= 0;
    // Out of sight is out of the keyboard's way, too.
    m_sidebar->setVisible(!isAway);
    m_divider->setVisible(!m_sidebarHidden);
    m_sidebar->setGeometry(-m_slide, 0, m_sidebarWidth, height());
    m_browser->setGeometry(left, 0, width() - left, height());
    m_divider->setGeometry(left - kDividerWidth - kGripWidth / 2, 0, kGripWidth, height());
    update();
}

void SplitView::resizeEvent(QResizeEvent*)
{
    m_sidebarWidth = resizedSidebarWidth(m_sidebarWidth, width());
    if (m_sidebarHidden && m_slideMotion->state() != QAbstractAnimation::Running) {
        m_slide = m_sidebarWidth + kDividerWidth;
    }
    placePanes();
}

void SplitView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), kit::color::window);
    painter.fillRect(m_sidebarWidth - m_slide, 0, kDividerWidth, height(), kit::color::line);
}

} // namespace mosaro::shell
