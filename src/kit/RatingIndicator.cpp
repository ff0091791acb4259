#include "kit/RatingIndicator.h"

#include "base/Text.h"
#include "kit/Look.h"
#include "kit/Paint.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace mosaro::kit {

namespace {

constexpr int kStar = 16;
constexpr int kStep = 20;
constexpr int kMargin = 4;

} // namespace

RatingIndicator::RatingIndicator(QWidget* parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setToolTip(base::text("Tooltip.Rating"));
    setAccessibleName(base::text("Tooltip.Rating"));
}

void RatingIndicator::setRating(int rating)
{
    const int held = std::clamp(rating, 0, kMostStars);
    if (held != m_rating) {
        m_rating = held;
        setAccessibleDescription(QString::number(held));
        update();
        Q_EMIT ratingChanged(held);
    }
}

QSize RatingIndicator::sizeHint() const
{
    return {kMostStars * kStep + 2 * kMargin, metric::rowHeight};
}

int RatingIndicator::starsAt(const QPointF& position) const
{
    return std::clamp(int(std::ceil((position.x() - kMargin) / kStep)), 0, kMostStars);
}

void RatingIndicator::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QIcon lit = icon(QStringLiteral("star_lit"), color::amber);
    const QIcon dark = icon(QStringLiteral("star"), color::text3);
    for (int star = 0; star < kMostStars; ++star) {
        const QRect place(kMargin + star * kStep, (height() - kStar) / 2, kStar, kStar);
        (star < m_rating ? lit : dark).paint(&painter, place);
    }
    if (hasFocus()) {
        paint::focusRing(painter, rect());
    }
}

void RatingIndicator::mousePressEvent(QMouseEvent* event)
{
    const int stars = starsAt(event->position());
    setRating(stars == m_rating ? stars - 1 : stars);
}

void RatingIndicator::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons().testFlag(Qt::LeftButton)) {
        setRating(starsAt(event->position()));
    }
}

void RatingIndicator::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    if (key == Qt::Key_Right || key == Qt::Key_Left) {
        setRating(m_rating + (key == Qt::Key_Right ? 1 : -1));
    } else if (key >= Qt::Key_0 && key <= Qt::Key_0 + kMostStars) {
        setRating(key - Qt::Key_0);
    } else {
        QWidget::keyPressEvent(event);
    }
}

} // namespace mosaro::kit
