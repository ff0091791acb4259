#include "kit/Paint.h"
#include "support/WindowTest.h"

#include <QDir>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QSignalSpy>

using namespace mosaro;
using namespace Qt::StringLiterals;

namespace {

/// How many pixels the test holds for.
template <class Test>
int countPixels(const QImage& image, Test test)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += test(image.pixelColor(x, y)) ? 1 : 0;
    }
    return count;
}

bool holdsColor(const QImage& image, const QColor& wanted, int tolerance)
{
    return countPixels(image, [&](const QColor& found) {
               return qAbs(found.red() - wanted.red()) <= tolerance &&
                      qAbs(found.green() - wanted.green()) <= tolerance &&
                      qAbs(found.blue() - wanted.blue()) <= tolerance;
           }) > 0;
}

QImage drawn(QWidget& widget)
{
    return widget.grab().toImage().convertToFormat(QImage::Format_ARGB32);
}

double luminance(const QColor& color)
{
    const auto linear = [](double c) {
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& a, const QColor& b)
{
    const auto [dark, light] = std::minmax({luminance(a), luminance(b)});
    return (light + 0.05) / (dark + 0.05);
}

} // namespace

class TestLook : public test::WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void labelColors()
    {
        for (const int none : {-1, 0, 8})
            QVERIFY(!kit::labelColor(none).isValid());
        QCOMPARE(kit::labelColor(1), QColor(252, 99, 89));
        QCOMPARE(kit::labelColor(7), QColor(168, 168, 168));
    }

    void everyIconIsDrawnAtEverySize()
    {
        const QStringList files = QDir(u":/icons"_s).entryList({u"*.svg"_s});
        QVERIFY(files.size() > 30);
        for (const QString& file : files) {
            const QIcon icon = kit::icon(file.chopped(4), Qt::white);
            QVERIFY2(!icon.isNull(), qPrintable(file));
            for (const int size : {14, 16, 18, 24}) {
                for (const double scale : {1.0, 1.5, 2.0}) {
                    const QPixmap picture = icon.pixmap(QSize(size, size), scale);
                    QCOMPARE(picture.size(), (QSizeF(size, size) * scale).toSize());
                    QCOMPARE(picture.devicePixelRatio(), scale);
                    const int inked = countPixels(picture.toImage(),
                                                  [](const QColor& color) { return color.alpha() > 32; });
                    QVERIFY2(inked >= size * scale / 2, qPrintable(file));
                }
            }
        }
    }

    void neededIconsExist()
    {
        const QString names =
            u"side_all_s side_recent_s side_screen_s side_phone_s side_tablet_s side_web_s side_icon_s "
            "side_button_s side_interface_s side_animated_gif_s side_wallpaper_s side_movie_s side_pdf_s "
            "side_collection_s side_smart_collection_s side_folder_s disclosure-closed disclosure-open "
            "disclosure-closed-inv disclosure-open-inv tag_symbol tag_symbol_R Alias Alias_R editing_item "
            "editing_item_R file_error file_error_R like_badge like_badge_retina"_s;
        for (const QString& name : names.split(u' '))
            QVERIFY2(!kit::icon(name).isNull(), qPrintable(name));
        QTest::ignoreMessage(QtWarningMsg, "No icon named no_such_icon");
        QVERIFY(kit::icon(u"no_such_icon"_s).isNull());
    }

    void iconsTakeTheirTint()
    {
        const auto picture = [](const QColor& tint) {
            return kit::icon(u"side_folder_s"_s, tint).pixmap(QSize(24, 24), 2.0).toImage();
        };
        QVERIFY(holdsColor(picture(kit::color::coral), kit::color::coral, 2));
        QVERIFY(holdsColor(picture(kit::color::blue), kit::color::blue, 2));
        QVERIFY(!holdsColor(picture(kit::color::blue), kit::color::coral, 2));
    }

    void captionsCanBeRead()
    {
        for (const QColor& ground :
             {kit::color::window, kit::color::sidebar, kit::color::raised, kit::color::field}) {
            QVERIFY(contrast(kit::color::text3, ground) >= 4.5);
            QVERIFY(contrast(kit::color::text, ground) >= 7.0);
        }
        QVERIFY(contrast(kit::color::window, kit::color::amber) >= 4.5);
    }

    void disabledControlsAreFaded()
    {
        QPushButton button(u"Button"_s);
        button.setDefault(true);
        button.resize(100, 30);
        QVERIFY(holdsColor(drawn(button), kit::color::amber, 4));
        button.setEnabled(false);
        const QImage picture = drawn(button);
        QVERIFY(!holdsColor(picture, kit::color::amber, 24));
        QVERIFY(holdsColor(picture, kit::paint::mixed(kit::color::window, kit::color::amber, 0.4), 6));
        QLabel label(u"MMMM"_s);
        label.resize(80, 24);
        QVERIFY(holdsColor(drawn(label), kit::color::text, 12));
        label.setEnabled(false);
        QVERIFY(!holdsColor(drawn(label), kit::color::text, 60));
    }

    void focusRingComesWithTheKeyboard()
    {
        QWidget window;
        QPushButton button(u"One"_s, &window);
        QPushButton other(u"Two"_s, &window);
        other.move(120, 0);
        window.resize(260, 60);
        window.show();
        QApplication::setActiveWindow(&window);
        button.setFocus(Qt::MouseFocusReason);
        QVERIFY(!holdsColor(drawn(button), kit::color::blue, 8));
        QTest::keyClick(&window, Qt::Key_Tab);
        QVERIFY(other.hasFocus());
        QVERIFY(holdsColor(drawn(other), kit::color::blue, 8));
    }

    void reducedMotionTakesNoTime()
    {
        qputenv("MOSARO_REDUCED_MOTION", "1");
        QCOMPARE(kit::motion(250), 0);
        qunsetenv("MOSARO_REDUCED_MOTION");
        QVERIFY(kit::motion(250) == 250 || kit::motion(250) == 0); // The desktop may ask for it too.
    }
};

QTEST_MAIN(TestLook)
#include "tst_look.moc"
