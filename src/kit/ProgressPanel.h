#pragma once

#include "base/Ports.h"

#include <QObject>
#include <QPointer>

class QWidget;

namespace mosaro::kit {

class ProgressView;
class Sheet;

/// The progress sheet of one window: a text over a bar from 0 to 100, and a button that stops the
/// work when that is offered. May outlive the window.
class ProgressPanel : public QObject, public base::ProgressSink {
    Q_OBJECT

public:
    explicit ProgressPanel(QWidget& window);
    ~ProgressPanel() override;

    void begin(const QString& text) override;
    /// An empty text keeps the one on show; a negative value counts as 0.
    void update(const QString& text, int percent) override;
    void end() override;
    void offerStop(const std::function<void()>& stop) override;

    [[nodiscard]] ProgressView* view() const;

private:
    QPointer<Sheet> m_sheet;       ///< Child of the window.
    QPointer<ProgressView> m_view; ///< Child of the sheet.
};

} // namespace mosaro::kit
