#include "shell/LoadingPanel.h"

#include "base/Text.h"
#include "kit/Look.h"
#include "kit/SpinningIndicator.h"
#include "shell/Panels.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPainter>

namespace mosaro::shell {

namespace {
constexpr QSize kSize{280, 120};
} // namespace

LoadingPanel::LoadingPanel(QWidget* parent)
    : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint), m_spinner(new kit::SpinningIndicator)
{
    setObjectName(QStringLiteral("LoadingPanel"));
    setWindowTitle(QStringLiteral("Mosaro"));
    setFixedSize(kSize);
    auto* text = new QLabel(base::text("Basic.Load.Library"));
    text->setAlignment(Qt::AlignCenter);
    auto* layout = new QVBoxLayout(this);
    layout->addStretch();
    layout->addWidget(m_spinner, 0, Qt::AlignCenter);
    layout->addSpacing(kit::metric::gap);
    layout->addWidget(text);
    layout->addStretch();
}

LoadingPanel::~LoadingPanel() = default;

void LoadingPanel::showLoadingView()
{
    m_spinner->start();
    centreOnScreen(*this);
    show();
    raise();
}

void LoadingPanel::closeLoadingView()
{
    m_spinner->stop();
    hide();
}

void LoadingPanel::mousePressEvent(QMouseEvent* event)
{
    moveByBackground(*this, *event);
}

void LoadingPanel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), kit::color::raised);
    painter.setPen(kit::color::fieldBorder);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

} // namespace mosaro::shell
