#pragma once

#include <QColor>
#include <QToolButton>

namespace mosaro::kit {

/// A flat button that shows one icon of the kit, amber while it is checked. Its tool tip is its accessible
/// name too.
class IconButton : public QToolButton {
    Q_OBJECT

public:
    IconButton(const QString& iconName, const QString& toolTip, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

private:
    void showIcon();

    QString m_iconName;
};

} // namespace mosaro::kit
