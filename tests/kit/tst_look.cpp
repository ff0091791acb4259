#include "kit/Look.h"
#include "kit/Paint.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace mosaro;

namespace {

int inkedPixels(const QImage& image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += qAlpha(image.pixel(x, y)) > 32 ? 1 : 0;
        }
    }
    return count;
}

QImage drawn(QWidget& widget)
{
    return widget.grab().toImage().convertToFormat(QImage::Format_ARGB32);
}

bool holdsColor(const QImage& image, const QColor& wanted, int tolerance)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor found = image.pixelColor(x, y);
            if (qAbs(found.red() - wanted.red()) <= tolerance &&
                qAbs(found.green() - wanted.green()) <= tolerance &&
                qAbs(found.blue() - wanted.blue()) <= tolerance) {
                return true;
            }
        }
    }
    return false;
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
    const double la = luminance(a);
    const double lb = luminance(b);
    return (qMax(la, lb) + 0.05) / (qMin(la, lb) + 0.05);
}

} // namespace

class TestLook : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { kit::installLook(*qApp); }

    void labelColors_data()
    {
        QTest::addColumn<int>("label");
        QTest::addColumn<QColor>("color");
        QTest::newRow("none") << 0 << QColor();
        QTest::newRow("red") << 1 << QColor(252, 99, 89);
        QTest::newRow("orange") << 2 << QColor(246, 170, 62);
        QTest::newRow("yellow") << 3 << QColor(235, 219, 65);
        QTest::newRow("green") << 4 << QColor(174, 216, 65);
        QTest::newRow("blue") << 5 << QColor(92, 160, 255);
        QTest::newRow("purple") << 6 << QColor(194, 138, 217);
        QTest::newRow("gray") << 7 << QColor(168, 168, 168);
        QTest::newRow("beyond") << 8 << QColor();
        QTest::newRow("negative") << -1 << QColor();
    }
    void labelColors()
    {
        QFETCH(int, label);
        QTEST(kit::labelColor(label), "color");
    }

    void everyIconIsDrawnAtEverySize_data()
    {
        QTest::addColumn<QString>("name");
        const QStringList files = QDir(QStringLiteral(":/icons")).entryList({QStringLiteral("*.svg")});
        QVERIFY(files.size() > 30);
        for (const QString& file : files) {
            QTest::newRow(qPrintable(file)) << file.chopped(4);
        }
    }
    void everyIconIsDrawnAtEverySize()
    {
        QFETCH(QString, name);
        const QIcon icon = kit::icon(name, Qt::white);
        QVERIFY(!icon.isNull());
        for (const int size : {14, 16, 18, 24}) {
            for (const double scale : {1.0, 1.5, 2.0}) {
                const QPixmap picture = icon.pixmap(QSize(size, size), scale);
                QCOMPARE(picture.size(), (QSizeF(size, size) * scale).toSize());
                QCOMPARE(picture.devicePixelRatio(), scale);
                const int inked = inkedPixels(picture.toImage());
                QVERIFY2(inked >= size * scale / 2, qPrintable(QStringLiteral("%1 pixels").arg(inked)));
            }
        }
    }

    void neededIconsExist_data()
    {
        QTest::addColumn<QString>("name");
        for (const char* name : {"side_all_s",
                                 "side_recent_s",
                                 "side_screen_s",
                                 "side_phone_s",
                                 "side_tablet_s",
                                 "side_web_s",
                                 "side_icon_s",
                                 "side_button_s",
                                 "side_interface_s",
                                 "side_animated_gif_s",
                                 "side_wallpaper_s",
                                 "side_movie_s",
                                 "side_pdf_s",
                                 "side_collection_s",
                                 "side_smart_collection_s",
                                 "side_folder_s",
                                 "disclosure-closed",
                                 "disclosure-open",
                                 "disclosure-closed-inv",
                                 "disclosure-open-inv",
                                 "tag_symbol",
                                 "tag_symbol_R",
                                 "Alias",
                                 "Alias_R",
                                 "editing_item",
                                 "editing_item_R",
                                 "file_error",
                                 "file_error_R",
                                 "like_badge",
                                 "like_badge_retina"}) {
            QTest::newRow(name) << QString::fromLatin1(name);
        }
    }
    void neededIconsExist()
    {
        QFETCH(QString, name);
        QVERIFY(!kit::icon(name).isNull());
    }

    void iconsTakeTheirTint()
    {
        const QImage picture = kit::icon(QStringLiteral("side_folder_s"), kit::color::coral)
                                   .pixmap(QSize(24, 24), 2.0)
                                   .toImage();
        QVERIFY(holdsColor(picture, kit::color::coral, 2));
        const QImage other =
            kit::icon(QStringLiteral("side_folder_s"), kit::color::blue).pixmap(QSize(24, 24), 2.0).toImage();
        QVERIFY(holdsColor(other, kit::color::blue, 2));
        QVERIFY(!holdsColor(other, kit::color::coral, 2));
    }

    void missingIconIsNull()
    {
        QTest::ignoreMessage(QtWarningMsg, "No icon named no_such_icon");
        QVERIFY(kit::icon(QStringLiteral("no_such_icon")).isNull());
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

    void disabledControlIsFaded()
    {
        QPushButton button(QStringLiteral("Button"));
        button.setDefault(true);
        button.resize(100, 30);
        QVERIFY(holdsColor(drawn(button), kit::color::amber, 4));
        button.setEnabled(false);
        const QImage picture = drawn(button);
        QVERIFY(!holdsColor(picture, kit::color::amber, 24));
        QVERIFY(holdsColor(picture, kit::paint::mixed(kit::color::window, kit::color::amber, 0.4), 6));
    }

    void disabledLabelIsFaded()
    {
        QLabel label(QStringLiteral("MMMM"));
        label.resize(80, 24);
        QVERIFY(holdsColor(drawn(label), kit::color::text, 12));
        label.setEnabled(false);
        QVERIFY(!holdsColor(drawn(label), kit::color::text, 60));
    }

    void focusRingComesWithTheKeyboard()
    {
        QWidget window;
        QPushButton button(QStringLiteral("One"), &window);
        QPushButton other(QStringLiteral("Two"), &window);
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
        qunsetenv("MOSARO_REDUCED_MOTION");
        qputenv("MOSARO_REDUCED_MOTION", "1");
        QCOMPARE(kit::motion(250), 0);
        qunsetenv("MOSARO_REDUCED_MOTION");
        QVERIFY(kit::motion(250) == 250 || kit::motion(250) == 0); // The desktop may ask for it too.
    }
};

QTEST_MAIN(TestLook)
#include "tst_look.moc"
