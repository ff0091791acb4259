#include "browser/ui/EmptyPlaces.h"

#include "base/Text.h"
#include "kit/Look.h"

#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

namespace mosaro::browser {

namespace {

constexpr QSize kZoneSize{460, 260};
constexpr int kZoneAir = 24;
const QColor kDashes{0x4A, 0x4B, 0x50};

QLabel* makeLabel(QWidget* parent, const QString& text, const QFont& font, const QColor& color)
{
    auto* label = new QLabel(text, parent);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    label->setFont(font);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, color);
    label->setPalette(palette);
    // The grid below would pass its own role on.
    label->setForegroundRole(QPalette::WindowText);
    return label;
}

} // namespace

/// The invitation to import: a picture, a text and a button, with dashes around them where files can be
/// dropped.
class DropZone : public QWidget {
public:
    DropZone(QWidget* parent, EmptyPlaces& owner)
        : QWidget(parent), m_title(makeLabel(this, {}, kit::font(15, QFont::Medium), kit::color::text2)),
          m_hint(makeLabel(this, {}, kit::font(12), kit::color::text3))
    {
        auto* picture = new QLabel(this);
        picture->setAlignment(Qt::AlignCenter);
        picture->setPixmap(kit::icon(QStringLiteral("import"), kit::color::text3)
                               .pixmap(QSize(40, 40), devicePixelRatioF()));
        auto* button = new QPushButton(base::text("Basic.Import"), this);
        button->setToolTip(base::text("Tooltip.Import"));
        QObject::connect(button, &QPushButton::clicked, &owner, &EmptyPlaces::importRequested);
        auto* column = new QVBoxLayout(this);
        column->setContentsMargins(kZoneAir, kZoneAir, kZoneAir, kZoneAir);
        column->setSpacing(kit::metric::gap);
        column->addStretch();
        column->addWidget(picture);
        column->addSpacing(kit::metric::gap);
        column->addWidget(m_title);
        column->addWidget(m_hint);
        column->addSpacing(kit::metric::gap);
        column->addWidget(button, 0, Qt::AlignHCenter);
        column->addStretch();
    }

    void setTakesDrops(bool takes)
    {
        m_takesDrops = takes;
        m_title->setText(takes ? base::text("Basic.Drop.Images") : base::text("Basic.Empty.Folder"));
        m_hint->setText(takes ? base::text("Hint.Drop.Images") : base::text("Hint.Empty.Folder"));
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        if (!m_takesDrops) {
            return;
        }
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        QPen pen(kDashes, 1.5);
        pen.setDashPattern({5, 4});
        painter.setPen(pen);
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 10, 10);
    }

private:
    QLabel* m_title;
    QLabel* m_hint;
    bool m_takesDrops = true;
};

EmptyPlaces::EmptyPlaces(QWidget& surface)
    : QObject(&surface), m_surface(surface), m_dropZone(new DropZone(&surface, *this)),
      m_guide(makeLabel(&surface, {}, kit::font(17), kit::color::text3))
{
    m_guide->setAttribute(Qt::WA_TransparentForMouseEvents);
    surface.installEventFilter(this);
    hideAll();
}

void EmptyPlaces::show(const EmptyState& state, bool takesDrops)
{
    m_dropZone->setTakesDrops(takesDrops);
    if (state.dropZone) {
        m_dropZone->setVisible(*state.dropZone);
    }
    m_guide->setText(showsDropZone() ? QString() : state.guide);
    m_guide->setVisible(!m_guide->text().isEmpty());
    place();
}

void EmptyPlaces::hideAll()
{
    show({false, {}}, true);
}

bool EmptyPlaces::showsDropZone() const
{
    return !m_dropZone->isHidden();
}

QString EmptyPlaces::guide() const
{
    return m_guide->text();
}

bool EmptyPlaces::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &m_surface && event->type() == QEvent::Resize) {
        place();
    }
    return QObject::eventFilter(watched, event);
}

void EmptyPlaces::place()
{
    const QRect area = m_surface.rect();
    QRect zone(QPoint(), kZoneSize.boundedTo(area.size() - QSize(kZoneAir, kZoneAir)));
    zone.moveCenter(area.center());
    m_dropZone->setGeometry(zone);
    m_guide->setGeometry(area.adjusted(kZoneAir, kZoneAir, -kZoneAir, -kZoneAir));
}

} // namespace mosaro::browser
