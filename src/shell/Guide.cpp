#include "shell/Guide.h"

#include "base/Text.h"
#include "kit/Look.h"
#include "shell/GuideBox.h"
#include "shell/GuidePage.h"

#include <QKeyEvent>
#include <QParallelAnimationGroup>
#include <QPropertyAnimation>
#include <QPushButton>

namespace mosaro::shell {

namespace {

constexpr QSize kBoxSize{720, 500};
constexpr int kButtonRow = 64;
constexpr int kButtonWidth = 110;
constexpr int kPushMilliseconds = 250;
constexpr int kLastPageMilliseconds = 450;
constexpr int kCloseMilliseconds = 350;

QPropertyAnimation* slide(QWidget* widget, QPoint from, QPoint to, int milliseconds)
{
    auto* animation = new QPropertyAnimation(widget, "pos");
    animation->setStartValue(from);
    animation->setEndValue(to);
    animation->setDuration(kit::motion(milliseconds));
    animation->setEasingCurve(QEasingCurve::OutCubic);
    return animation;
}

} // namespace

GuideButtons GuideButtons::onPage(int index)
{
    if (index == GuidePage::kLast) {
        return {};
    }
    const bool atEnd = index == GuidePage::kCount;
    return {index > 1 && !atEnd, !atEnd, atEnd};
}

Guide::Guide(QWidget* parent)
    : QWidget(parent), m_box(new GuideBox(this)), m_pageClip(new QWidget(m_box)),
      m_previous(new QPushButton(base::text("Basic.Previous"), m_box)),
      m_next(new QPushButton(base::text("Basic.Next"), m_box)),
      m_done(new QPushButton(base::text("Basic.Start"), m_box)),
      m_letsGo(new QPushButton(base::text("Basic.Lets.Go"), m_box))
{
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(base::text("Accessible.Guide"));
    for (QPushButton* button : {m_next, m_done, m_letsGo}) {
        button->setDefault(true);
    }
    connect(m_previous, &QPushButton::clicked, this, [this] { naviagateGuidePage(Back); });
    connect(m_next, &QPushButton::clicked, this, [this] { naviagateGuidePage(On); });
    connect(m_done, &QPushButton::clicked, this, &Guide::showLastGuide);
    connect(m_letsGo, &QPushButton::clicked, this, &Guide::closeGuidePage);
    showGuidePage();
}

Guide::~Guide() = default;

void Guide::showGuidePage()
{
    settle();
    m_closing = false;
    delete m_page.data();
    m_index = 1;
    m_page = new GuidePage(m_index, m_pageClip);
    m_page->show();
    layOut();
    updateButtons();
}

void Guide::naviagateGuidePage(int tag)
{
    if (m_index > GuidePage::kCount) {
        return;
    }
    if (tag == Back && m_index >= 2) {
        showPage(m_index - 1, Back);
    } else if (tag == On && m_index < GuidePage::kCount) {
        showPage(m_index + 1, On);
    }
}

void Guide::showPage(int index, int direction)
{
    m_index = index;
    push(new GuidePage(index, m_pageClip), direction);
    updateButtons();
}

void Guide::push(GuidePage* page, int direction)
{
    settle();
    GuidePage* before = m_page;
    m_page = page;
    page->resize(pageRect().size());
    const QPoint away(direction == On ? -page->width() : page->width(), 0);
    page->move(-away);
    page->show();
    m_push = new QParallelAnimationGroup(this);
    const int duration = m_index == GuidePage::kLast ? kLastPageMilliseconds : kPushMilliseconds;
    m_push->addAnimation(slide(before, QPoint(0, 0), away, duration));
    m_push->addAnimation(slide(page, -away, QPoint(0, 0), duration));
    connect(m_push, &QAbstractAnimation::finished, before, &QObject::deleteLater);
    m_push->start(QAbstractAnimation::DeleteWhenStopped);
}

/// Brings a push that is under way to its end at once.
void Guide::settle()
{
    if (m_push != nullptr) {
        m_push->setCurrentTime(m_push->totalDuration());
    }
}

void Guide::showLastGuide()
{
    if (m_index == GuidePage::kCount) {
        showPage(GuidePage::kLast, On);
    }
}

void Guide::closeGuidePage()
{
    if (m_closing) {
        return;
    }
    m_closing = true;
    auto* away = slide(m_box, m_box->pos(), m_box->pos() - QPoint(0, height()), kCloseMilliseconds);
    away->setParent(this);
    connect(away, &QAbstractAnimation::finished, this, &Guide::finished);
    away->start(QAbstractAnimation::DeleteWhenStopped);
}

void Guide::updateButtons()
{
    const GuideButtons buttons = GuideButtons::onPage(m_index);
    m_previous->setVisible(buttons.previous);
    m_next->setVisible(buttons.next);
    m_done->setVisible(buttons.done);
    m_letsGo->setVisible(m_index == GuidePage::kLast);
    static_cast<GuideBox*>(m_box)->setCurrentPage(m_index);
    setFocus(Qt::OtherFocusReason);
    setAccessibleDescription(m_page->title() + u'\n' + m_page->subtitle());
}

QRect Guide::pageRect() const
{
    return {0, 0, m_box->width(), m_box->height() - kButtonRow};
}

void Guide::layOut()
{
    const QSize size = kBoxSize.boundedTo(QSize(qMax(320, width() - 40), qMax(280, height() - 40)));
    m_box->setGeometry(QRect(QPoint((width() - size.width()) / 2, (height() - size.height()) / 2), size));
    m_pageClip->setGeometry(pageRect());
    m_page->setGeometry(m_pageClip->rect());
    const int buttonHeight = m_next->sizeHint().height() + 2;
    const int y = m_box->height() - kButtonRow + (kButtonRow - buttonHeight) / 2;
    const int right = m_box->width() - kit::metric::wideGap - kButtonWidth;
    m_previous->setGeometry(kit::metric::wideGap, y, kButtonWidth, buttonHeight);
    for (QPushButton* button : {m_next, m_done}) {
        button->setGeometry(right, y, kButtonWidth, buttonHeight);
    }
    m_letsGo->setGeometry((m_box->width() - kButtonWidth) / 2, y, kButtonWidth, buttonHeight);
}

void Guide::resizeEvent(QResizeEvent*)
{
    settle();
    layOut();
}

void Guide::keyPressEvent(QKeyEvent* event)
{
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    switch (event->key()) {
    case Qt::Key_Left:
        naviagateGuidePage(mirrored ? On : Back);
        break;
    case Qt::Key_Right:
        naviagateGuidePage(mirrored ? Back : On);
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        if (m_previous->hasFocus()) {
            naviagateGuidePage(Back);
        } else if (m_index == GuidePage::kLast) {
            closeGuidePage();
        } else if (m_index == GuidePage::kCount) {
            showLastGuide();
        } else {
            naviagateGuidePage(On);
        }
        break;
    default:
        event->accept();
    }
}

} // namespace mosaro::shell
