#include "shell/About.h"

#include "base/Text.h"
#include "base/ZNUserDefaults.h"
#include "kit/Look.h"
#include "platform/LinuxPlatform.h"
#include "shell/Panels.h"

#include <QDate>
#include <QGraphicsOpacityEffect>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QParallelAnimationGroup>
#include <QPointer>
#include <QPropertyAnimation>
#include <QSequentialAnimationGroup>

namespace mosaro::shell {

namespace {

constexpr QSize kWindow{560, 372};
constexpr int kLabelX = 216;
constexpr int kTextWidth = 300;
constexpr int kSpecialThanksX = 216;
constexpr int kSpecialThanksWidth = 331;
constexpr int kHiddenBeyond = 253; ///< With its own width: what puts a text field out of sight.
constexpr int kOvershoot = 5;
constexpr int kMoveIn = 650;
constexpr int kBounce = 150;
constexpr int kFade = 250;
constexpr int kGrow = 1850;
constexpr double kHalfway = 0.65;

QGraphicsOpacityEffect* opacityOf(const QWidget* widget)
{
    return qobject_cast<QGraphicsOpacityEffect*>(widget->graphicsEffect());
}

QLabel* makeLabel(QWidget* parent, const QString& text, const QFont& textFont, QRect place)
{
    auto* label = new QLabel(text, parent);
    label->setFont(textFont);
    label->setTextFormat(Qt::PlainText);
    label->setGeometry(place);
    return label;
}

void setTransparent(QWidget* widget)
{
    auto* effect = new QGraphicsOpacityEffect(widget);
    effect->setOpacity(0);
    widget->setGraphicsEffect(effect);
}

} // namespace

AboutFacts AboutFacts::ofThisProgram()
{
    return {base::ZNUserDefaults::applicationVersion(), base::ZNUserDefaults::applicationBuildNumber(),
            platform::userFullName(), QDate::currentDate().year()};
}

About& About::sharedController()
{
    static QPointer<About> window;
    if (window == nullptr) {
        window = new About(AboutFacts::ofThisProgram());
        window->setAttribute(Qt::WA_DeleteOnClose);
    }
    return *window;
}

About::About(const AboutFacts& facts)
    : QWidget(nullptr, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint)
{
    setWindowTitle(base::text("About.Title"));
    setFixedSize(kWindow);

    auto* mark = new QLabel(this);
    mark->setGeometry(40, 44, 136, 136);
    mark->setPixmap(
        kit::icon(QStringLiteral("org.mosaro.Mosaro")).pixmap(QSize(136, 136), devicePixelRatioF()));
    auto* name =
        makeLabel(this, QStringLiteral("Mosaro"), kit::font(24, QFont::Bold), QRect(40, 192, 136, 32));
    name->setAlignment(Qt::AlignCenter);
    const QString version =
        base::text("About.Version", base::text("Basic.Version"), facts.version, facts.build);
    m_versionInfo = makeLabel(this, version, kit::font(11), QRect(28, 226, 160, 18));
    m_versionInfo->setAlignment(Qt::AlignCenter);
    setTextColor(*m_versionInfo, kit::color::text3);

    addCredit(base::text("About.Development"), base::text("About.Developer.Info"), 48);
    addCredit(base::text("About.Document"), base::text("About.Document.Info"), 112);
    addCredit(base::text("About.Thanks"), base::text("About.Thanks.Info"), 176);

    m_specialThanksTo = makeLabel(this, base::text("About.Special.Thanks", facts.userName),
                                  kit::font(13, QFont::DemiBold), QRect(kSpecialThanksX, 276, 0, 20));
    setTextColor(*m_specialThanksTo, kit::color::amber);
    setTransparent(m_specialThanksTo);

    const QString copyright = base::text("About.Copyright", QString::number(facts.year));
    m_copyrightInfo = makeLabel(this, copyright, kit::font(11), QRect(28, 334, kWindow.width() - 56, 18));
    m_copyrightInfo->setAlignment(Qt::AlignCenter);
    setTextColor(*m_copyrightInfo, kit::color::text3);
}

About::~About() = default;

void About::addCredit(const QString& label, const QString& text, int y)
{
    Credit credit{};
    credit.label = makeLabel(this, label, kit::font(11, QFont::Bold), QRect(kLabelX, y, kTextWidth, 16));
    setTextColor(*credit.label, kit::color::text3);
    setTransparent(credit.label);
    credit.textField = makeLabel(this, text, kit::font(13), QRect(kLabelX, y + 18, kTextWidth, 36));
    credit.textField->setWordWrap(true);
    credit.textField->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    setTextColor(*credit.textField, kit::color::text);
    credit.restX = kLabelX;
    hideTextField(credit);
    m_credits.push_back(credit);
}

void About::hideTextField(Credit& credit)
{
    credit.textField->move(credit.restX + credit.textField->width() + kHiddenBeyond, credit.textField->y());
}

void About::showWindow()
{
    if (!isVisible()) {
        centreOnScreen(*this);
        show();
    }
    raise();
    activateWindow();
    startCreditsAnimation();
}

QAbstractAnimation* About::moveTextFields(int distanceBeyondWidth, bool withWidth, int milliseconds)
{
    auto* together = new QParallelAnimationGroup;
    for (const Credit& credit : m_credits) {
        const int width = withWidth ? credit.textField->width() : 0;
        // The first move starts out of sight, the second 5 points past the resting place.
        const int from = withWidth ? credit.restX + width + kHiddenBeyond : credit.restX - kOvershoot;
        auto* move = new QPropertyAnimation(credit.textField, "pos");
        move->setStartValue(QPoint(from, credit.textField->y()));
        move->setEndValue(QPoint(from + distanceBeyondWidth - width, credit.textField->y()));
        move->setDuration(kit::motion(milliseconds));
        move->setEasingCurve(QEasingCurve::OutCubic);
        together->addAnimation(move);
    }
    return together;
}

QAbstractAnimation* About::fade(QWidget* widget, double alpha, int milliseconds)
{
    auto* change = new QPropertyAnimation(opacityOf(widget), "opacity");
    change->setEndValue(alpha);
    change->setDuration(kit::motion(milliseconds));
    return change;
}

void About::startCreditsAnimation()
{
    if (m_isAnimated) {
        return;
    }
    m_isAnimated = true;
    m_animation = new QSequentialAnimationGroup(this);
    m_animation->addAnimation(moveTextFields(-(kHiddenBeyond + kOvershoot), true, kMoveIn));
    m_animation->addAnimation(moveTextFields(kOvershoot, false, kBounce));

    auto* labels = new QParallelAnimationGroup;
    for (const Credit& credit : m_credits) {
        labels->addAnimation(fade(credit.label, 1.0, kFade));
    }
    m_animation->addAnimation(labels);

    auto* thanks = new QParallelAnimationGroup;
    thanks->addAnimation(fade(m_specialThanksTo, kHalfway, kGrow));
    auto* grow = new QPropertyAnimation(m_specialThanksTo, "size");
    grow->setStartValue(QSize(0, m_specialThanksTo->height()));
    grow->setEndValue(QSize(kSpecialThanksWidth, m_specialThanksTo->height()));
    grow->setDuration(kit::motion(kGrow));
    grow->setEasingCurve(QEasingCurve::OutCubic);
    thanks->addAnimation(grow);
    m_animation->addAnimation(thanks);
    m_animation->addAnimation(fade(m_specialThanksTo, 1.0, kFade));

    connect(m_animation, &QAbstractAnimation::finished, this, &About::creditsEnded);
    m_animation->start();
}

int About::textFieldOffset() const
{
    const Credit& first = m_credits.front();
    return first.textField->x() - first.restX;
}

double About::labelAlpha() const
{
    return opacityOf(m_credits.front().label)->opacity();
}

double About::specialThanksAlpha() const
{
    return opacityOf(m_specialThanksTo)->opacity();
}

int About::specialThanksWidth() const
{
    return m_specialThanksTo->width();
}

void About::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), kit::color::sidebar);
}

void About::mousePressEvent(QMouseEvent* event)
{
    moveByBackground(*this, *event);
}

void About::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape || event->matches(QKeySequence::Close)) {
        close();
    } else {
        QWidget::keyPressEvent(event);
    }
}

} // namespace mosaro::shell
