#pragma once

#include "base/Ports.h"

#include <QDialog>

class QPushButton;

namespace mosaro::kit {

/// A question or a message that stops everything else: a title, an explanation, one or two buttons. Return is
/// the default button, Escape the alternate one.
class AlertPanel : public QDialog {
    Q_OBJECT

public:
    explicit AlertPanel(const base::AlertRequest& request, QWidget* parent = nullptr);

    /// Shows it and waits: 1 for the default button, 0 otherwise.
    int ask();

    [[nodiscard]] QPushButton* defaultButton() const { return m_default; }
    /// Null when there is one button only.
    [[nodiscard]] QPushButton* alternateButton() const { return m_alternate; }

private:
    QPushButton* m_default;
    QPushButton* m_alternate = nullptr;
};

} // namespace mosaro::kit
