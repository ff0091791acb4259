#include "kit/Look.h"

#include "kit/IconEngine.h"
#include "kit/MosaroStyle.h"
#include "kit/Paint.h"

#include <QApplication>
#include <QFontDatabase>
#include <QPalette>
#include <QSettings>
#include <QStandardPaths>
#include <array>

namespace mosaro::kit {

namespace {

constexpr double kBaseFontSize = 13;
constexpr qreal kDisabledStrength = 0.4;

QString preferredFamily()
{
    for (const char* family : {"Inter", "Noto Sans", "Cantarell", "DejaVu Sans"}) {
        if (QFontDatabase::hasFamily(QString::fromLatin1(family))) {
            return QString::fromLatin1(family);
        }
    }
    return {};
}

QPalette darkPalette()
{
    QPalette palette(color::raisedStrong, color::window);
    const auto set = [&palette](QPalette::ColorRole role, const QColor& value) {
        palette.setColor(role, value);
    };
    set(QPalette::WindowText, color::text);
    set(QPalette::Base, color::field);
    set(QPalette::AlternateBase, QColor(0x17, 0x17, 0x18));
    set(QPalette::Text, color::text);
    set(QPalette::ButtonText, color::text);
    set(QPalette::BrightText, Qt::white);
    set(QPalette::PlaceholderText, color::text3);
    set(QPalette::ToolTipBase, color::raisedStrong);
    set(QPalette::ToolTipText, color::text);
    set(QPalette::Highlight, color::amber);
    set(QPalette::HighlightedText, color::window);
    set(QPalette::Link, color::blue);
    set(QPalette::LinkVisited, color::blue);
    set(QPalette::Light, color::raisedStrong.lighter(115));
    set(QPalette::Midlight, color::raisedStrong);
    set(QPalette::Mid, color::fieldBorder);
    set(QPalette::Dark, color::line);
    set(QPalette::Shadow, Qt::black);
    // What the style paints is faded as a whole; only the text that widgets paint by themselves needs a faded
    // colour.
    const QColor faded = paint::mixed(color::window, color::text, kDisabledStrength);
    palette.setColor(QPalette::Disabled, QPalette::Text, faded);
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, faded);
    palette.setColor(QPalette::Disabled, QPalette::PlaceholderText,
                     paint::mixed(color::window, color::text3, kDisabledStrength));
    return palette;
}

/// What the desktop's own settings file says; desktops without one want motion.
bool desktopReducesMotion()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    for (const char* version : {"/gtk-4.0", "/gtk-3.0"}) {
        const QSettings settings(folder + QString::fromLatin1(version) + QStringLiteral("/settings.ini"),
                                 QSettings::IniFormat);
        const QVariant enabled = settings.value(QStringLiteral("Settings/gtk-enable-animations"));
        if (enabled.isValid()) {
            return !enabled.toBool();
        }
    }
    return false;
}

} // namespace

QColor labelColor(int label)
{
    static const std::array<QColor, 7> colors{
        QColor(252, 99, 89),  QColor(246, 170, 62),  QColor(235, 219, 65), QColor(174, 216, 65),
        QColor(92, 160, 255), QColor(194, 138, 217), QColor(168, 168, 168)};
    if (label < 1 || label > int(colors.size())) {
        return {};
    }
    return colors.at(size_t(label) - 1);
}

QFont font(double pointSize, QFont::Weight weight)
{
    static const QString family = preferredFamily();
    QFont result;
    if (!family.isEmpty()) {
        result.setFamily(family);
    }
    result.setPixelSize(qMax(1, qRound(pointSize)));
    result.setWeight(weight);
    return result;
}

void installLook(QApplication& application)
{
    application.setStyle(new MosaroStyle);
    application.setPalette(darkPalette());
    application.setFont(font(kBaseFontSize));
}

QIcon icon(const QString& name, const QColor& tint)
{
    // One drawing serves every scale, so the names of the doubled pictures mean the same drawing.
    QString drawing = name;
    for (const QLatin1String doubled : {QLatin1String("_R"), QLatin1String("_retina")}) {
        if (drawing.endsWith(doubled)) {
            drawing.chop(doubled.size());
        }
    }
    return QIcon(new IconEngine(drawing, tint));
}

int motion(int milliseconds)
{
    static const bool reducedByDesktop = desktopReducesMotion();
    const bool reduced = reducedByDesktop || qEnvironmentVariableIntValue("MOSARO_REDUCED_MOTION") != 0;
    return reduced ? 0 : milliseconds;
}

} // namespace mosaro::kit
