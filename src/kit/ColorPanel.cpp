#include "kit/ColorPanel.h"

#include "base/Text.h"

#include <QPointer>
#include <QSignalBlocker>

namespace mosaro::kit {

namespace {

constexpr int kSettleTime = 200;

QPointer<ColorPanel>& shared()
{
    static QPointer<ColorPanel> panel;
    return panel;
}

} // namespace

ColorPanel& ColorPanel::sharedPanel(QWidget& owner)
{
    if (shared().isNull()) {
        shared() = new ColorPanel(owner.window());
    }
    return *shared();
}

ColorPanel* ColorPanel::existing()
{
    return shared();
}

void ColorPanel::closeShared()
{
    if (existing() != nullptr) {
        existing()->close();
    }
}

ColorPanel::ColorPanel(QWidget* owner) : QColorDialog(Qt::white, owner)
{
    setOptions(DontUseNativeDialog | NoButtons);
    setModal(false);
    setWindowTitle(base::text("Basic.Colors"));
    m_settled.setSingleShot(true);
    m_settled.setInterval(kSettleTime);
    connect(this, &QColorDialog::currentColorChanged, this, [this] { m_settled.start(); });
    connect(&m_settled, &QTimer::timeout, this, [this] { Q_EMIT colorDidChange(currentColor()); });
}

void ColorPanel::setColor(const QColor& color)
{
    const QSignalBlocker silent(this);
    m_settled.stop();
    setCurrentColor(color);
}

/// Beside the window, not as a sheet of it.
void ColorPanel::open()
{
    show();
    raise();
    activateWindow();
}

} // namespace mosaro::kit
