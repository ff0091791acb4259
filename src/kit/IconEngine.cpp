#include "kit/IconEngine.h"

#include "kit/Look.h"

#include <QFile>
#include <QHash>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace mosaro::kit {

namespace {

constexpr qreal kDisabledOpacity = 0.4;

/// One renderer for each name and colour; the interface uses a few dozen.
std::shared_ptr<QSvgRenderer> rendererFor(const QString& name, const QColor& tint)
{
    static QHash<QString, std::shared_ptr<QSvgRenderer>> renderers;
    const QString key = name + tint.name(QColor::HexArgb);
    auto& renderer = renderers[key];
    if (!renderer) {
        renderer = std::make_shared<QSvgRenderer>();
        QFile file(QStringLiteral(":/icons/%1.svg").arg(name));
        if (file.open(QIODevice::ReadOnly)) {
            QByteArray drawing = file.readAll();
            drawing.replace("currentColor", tint.name(QColor::HexRgb).toLatin1());
            renderer->load(drawing);
            renderer->setAspectRatioMode(Qt::KeepAspectRatio);
        } else {
            qWarning("No icon named %s", qPrintable(name));
        }
    }
    return renderer;
}

} // namespace

IconEngine::IconEngine(QString name, const QColor& tint)
    : m_name(std::move(name)), m_tint(tint), m_renderer(rendererFor(m_name, m_tint))
{
}

IconEngine::~IconEngine() = default;

void IconEngine::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const qreal strength = mode == QIcon::Disabled ? kDisabledOpacity : 1.0;
    painter->setOpacity(painter->opacity() * strength * m_tint.alphaF());
    m_renderer->render(painter, rect);
    painter->restore();
}

QPixmap IconEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state)
{
    if (size.isEmpty() || isNull()) {
        return {};
    }
    const QString cacheKey = QStringLiteral("mosaro-icon %1 %2 %3x%4 %5")
                                 .arg(m_name, m_tint.name(QColor::HexArgb))
                                 .arg(size.width())
                                 .arg(size.height())
                                 .arg(mode == QIcon::Disabled ? 1 : 0);
    QPixmap picture;
    if (!QPixmapCache::find(cacheKey, &picture)) {
        picture = QPixmap(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        painter.end();
        QPixmapCache::insert(cacheKey, picture);
    }
    return picture;
}

QIconEngine* IconEngine::clone() const
{
    return new IconEngine(m_name, m_tint);
}

QString IconEngine::key() const
{
    return QStringLiteral("MosaroIconEngine");
}

bool IconEngine::isNull()
{
    return !m_renderer->isValid();
}

} // namespace mosaro::kit
