#pragma once

#include <QWidget>

namespace mosaro::kit {

/// Five stars of which the first so many are lit. The mouse sets them, a click on the last lit one takes it
/// away; arrow keys and digits do the same.
class RatingIndicator : public QWidget {
    Q_OBJECT

public:
    static constexpr int kMostStars = 5;

    explicit RatingIndicator(QWidget* parent = nullptr);

    [[nodiscard]] int rating() const { return m_rating; }
    /// Held within 0 to 5. Tells of a change.
    void setRating(int rating);

    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    void ratingChanged(int rating);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] int starsAt(const QPointF& position) const;

    int m_rating = 0;
};

} // namespace mosaro::kit
