#pragma once

#include "kit/Overlay.h"

class QLabel;

namespace mosaro::kit {

class SpinningIndicator;

/// Black, with a spinner and a line of text, for work that must not be disturbed.
class SpinnerOverlay : public Overlay {
    Q_OBJECT

public:
    explicit SpinnerOverlay(QWidget& window);

    /// True shows the overlay, with the text when there is one; false takes it away.
    void showAlertView(bool shown, const QString& message = {});
    void updateAlertViewMessage(const QString& message);
    [[nodiscard]] QString message() const;

private:
    void setMessage(const QString& message);

    SpinningIndicator* m_spinner;
    QLabel* m_text;
};

} // namespace mosaro::kit
