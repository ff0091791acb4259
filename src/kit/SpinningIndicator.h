#pragma once

#include <QVariantAnimation>
#include <QWidget>

namespace mosaro::kit {

/// A turning arc for work of unknown length. Stands still when the desktop asks for reduced motion.
class SpinningIndicator : public QWidget {
    Q_OBJECT

public:
    explicit SpinningIndicator(QWidget* parent = nullptr);

    void start();
    void stop();
    [[nodiscard]] QSize sizeHint() const override { return {32, 32}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QVariantAnimation m_turn;
    bool m_spinning = false;
};

} // namespace mosaro::kit
