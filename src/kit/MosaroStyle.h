#pragma once

#include <QProxyStyle>

class QStyleOptionComboBox;
class QStyleOptionMenuItem;
class QStyleOptionSlider;
class QStyleOptionSpinBox;
class QStyleOptionToolButton;

namespace mosaro::kit {

/// The flat dark look, drawn over Fusion's geometry. A disabled control is drawn as an enabled one at 40 %
/// opacity; whoever holds the keyboard focus shows a blue ring; letters are underlined while Alt is down.
class MosaroStyle : public QProxyStyle {
    Q_OBJECT

public:
    MosaroStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    void drawItemText(QPainter* painter, const QRect& rect, int flags, const QPalette& palette, bool enabled,
                      const QString& text, QPalette::ColorRole role) const override;
    [[nodiscard]] QPixmap generatedIconPixmap(QIcon::Mode mode, const QPixmap& pixmap,
                                              const QStyleOption* option) const override;

    [[nodiscard]] QIcon standardIcon(StandardPixmap which, const QStyleOption* option,
                                     const QWidget* widget) const override;
    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option,
                                  const QWidget* widget) const override;
    [[nodiscard]] int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                                QStyleHintReturn* data) const override;
    [[nodiscard]] QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                         const QWidget* widget) const override;
    [[nodiscard]] QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                       SubControl sub, const QWidget* widget) const override;
    [[nodiscard]] QRect subElementRect(SubElement element, const QStyleOption* option,
                                       const QWidget* widget) const override;
    void polish(QWidget* widget) override;
    void polish(QApplication* application) override;
    using QProxyStyle::polish;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// Each answers whether it drew the element.
    bool drawButtonPrimitive(PrimitiveElement element, const QStyleOption& option, QPainter& painter) const;
    bool drawFramePrimitive(PrimitiveElement element, const QStyleOption& option, QPainter& painter,
                            const QWidget* widget) const;
    bool drawItemPrimitive(PrimitiveElement element, const QStyleOption& option, QPainter& painter) const;
    bool drawMenuElement(ControlElement element, const QStyleOption& option, QPainter& painter,
                         const QWidget* widget) const;
    bool drawOtherElement(ControlElement element, const QStyleOption& option, QPainter& painter,
                          const QWidget* widget) const;
    /// A label with an icon, on a painter that fades already what is disabled: the icon must not fade again.
    void drawFadedOnce(ControlElement element, QStyleOption& label, QPainter& painter,
                       const QWidget* widget) const;
    void drawMenuItem(const QStyleOptionMenuItem& item, QPainter& painter, const QWidget* widget) const;
    void drawSlider(const QStyleOptionSlider& slider, QPainter& painter, const QWidget* widget) const;
    void drawScrollBar(const QStyleOptionSlider& bar, QPainter& painter, const QWidget* widget) const;
    void drawComboBox(const QStyleOptionComboBox& combo, QPainter& painter, const QWidget* widget) const;
    void drawMenuButton(const QStyleOptionToolButton& button, QPainter& painter, const QWidget* widget) const;
    void showMnemonics(bool shown);
    void drawSpinBox(const QStyleOptionSpinBox& spin, QPainter& painter, const QWidget* widget) const;

    bool m_showsMnemonics = false; ///< While Alt is down, and in menus that were opened with it.
};

} // namespace mosaro::kit
