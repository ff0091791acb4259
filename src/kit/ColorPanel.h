#pragma once

#include <QColor>
#include <QColorDialog>
#include <QTimer>

namespace mosaro::kit {

/// The colour panel that all parts of the program share: a window of its own that tells the colour being
/// chosen while it is open. Whoever opens it last says with which colour it starts.
class ColorPanel : public QColorDialog {
    Q_OBJECT

public:
    /// Made on the first call, as a window of `owner`'s window.
    static ColorPanel& sharedPanel(QWidget& owner);
    /// Null while there is none.
    [[nodiscard]] static ColorPanel* existing();
    static void closeShared();

    /// Shows the colour without telling it as a choice.
    void setColor(const QColor& color);
    void open() override;

Q_SIGNALS:
    /// The user settled on a colour: once for a drag across the panel, not for each point of it.
    void colorDidChange(const QColor& color);

private:
    explicit ColorPanel(QWidget* owner);

    QTimer m_settled;
};

} // namespace mosaro::kit
