#pragma once

#include "kit/Overlay.h"

namespace mosaro::kit {

/// Dark grey, filled by a view that gets the keyboard.
class ModeOverlay : public Overlay {
    Q_OBJECT

public:
    explicit ModeOverlay(QWidget& window);

    /// True shows the overlay with `view`, which belongs to the overlay from then on; false takes both away.
    void showAlertMode(bool shown, QWidget* view = nullptr);
};

} // namespace mosaro::kit
