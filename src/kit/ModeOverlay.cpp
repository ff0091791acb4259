#include "kit/ModeOverlay.h"

namespace mosaro::kit {

namespace {
constexpr qreal kModeAlpha = 0.85;
constexpr float kModeWhite = 0.12F;
} // namespace

ModeOverlay::ModeOverlay(QWidget& window)
    : Overlay(window, QColor::fromRgbF(kModeWhite, kModeWhite, kModeWhite), kModeAlpha)
{
    connect(this, &Overlay::gone, this, [this] { setHosted(nullptr); });
}

void ModeOverlay::showAlertMode(bool shown, QWidget* view)
{
    if (shown) {
        if (view != nullptr) {
            setHosted(view);
        }
        showOverlay();
    } else {
        hideOverlay();
    }
}

} // namespace mosaro::kit
