#pragma once

#include <QColor>
#include <QIconEngine>
#include <memory>

class QSvgRenderer;

namespace mosaro::kit {

/// Draws one vector icon in one colour, anew for each size and scale, so that it is crisp at all of them.
class IconEngine : public QIconEngine {
public:
    IconEngine(QString name, const QColor& tint);
    ~IconEngine() override;

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    [[nodiscard]] QIconEngine* clone() const override;
    [[nodiscard]] QString key() const override;
    bool isNull() override;

private:
    QString m_name;
    QColor m_tint;
    std::shared_ptr<QSvgRenderer> m_renderer;
};

} // namespace mosaro::kit
