#include "shell/ChooserWindow.h"

#include "base/Text.h"
#include "kit/Look.h"
#include "shell/Panels.h"

#include <QBoxLayout>
#include <QCloseEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>

namespace mosaro::shell {

namespace {
constexpr QSize kSize{440, 450};
constexpr int kMargin = 48;
constexpr int kIconSize = 96;
constexpr int kButtonHeight = 36;
} // namespace

ChooserWindow::ChooserWindow(QWidget* parent)
    : QWidget(parent, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      m_title(new QLabel(base::text("MRL.Title"))), m_message(new QLabel(base::text("MRL.Message"))),
      m_chooseButton(new QPushButton(base::text("Basic.Choose.Library"))),
      m_createButton(new QPushButton(base::text("Basic.Create.Library"))),
      m_quitButton(new QPushButton(base::text("Basic.Quit")))
{
    setObjectName(QStringLiteral("ChooserWindow"));
    setWindowTitle(QStringLiteral("Mosaro"));
    setFixedSize(kSize);

    auto* picture = new QLabel;
    picture->setPixmap(QIcon(QStringLiteral(":/icons/org.mosaro.Mosaro.svg")).pixmap(kIconSize, kIconSize));
    m_title->setFont(kit::font(18, QFont::DemiBold));
    m_message->setFont(kit::font(13));
    m_message->setWordWrap(true);
    setTextColor(*m_message, kit::color::text2);
    for (QLabel* label : {picture, m_title, m_message}) {
        label->setAlignment(Qt::AlignCenter);
    }

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin - kit::metric::gap, kMargin, kMargin - kit::metric::gap);
    layout->setSpacing(kit::metric::gap);
    layout->addWidget(picture);
    layout->addSpacing(kit::metric::gap);
    layout->addWidget(m_title);
    layout->addWidget(m_message);
    layout->addStretch();
    for (QPushButton* button : {m_chooseButton, m_createButton, m_quitButton}) {
        button->setMinimumHeight(kButtonHeight);
        button->setAutoDefault(true); // Return presses the one with the focus.
        layout->addWidget(button);
    }
    m_chooseButton->setDefault(true);
    m_chooseButton->setToolTip(base::text("Tooltip.Choose.Library"));
    m_createButton->setToolTip(base::text("Tooltip.Create.Library"));
    m_quitButton->setToolTip(base::text("Tooltip.Quit"));

    connect(m_chooseButton, &QPushButton::clicked, this, &ChooserWindow::chooseRequested);
    connect(m_createButton, &QPushButton::clicked, this, &ChooserWindow::createRequested);
    connect(m_quitButton, &QPushButton::clicked, this, &ChooserWindow::quitRequested);
}

ChooserWindow::~ChooserWindow() = default;

void ChooserWindow::present()
{
    centreOnScreen(*this);
    show();
    raise();
    activateWindow();
    m_chooseButton->setFocus();
}

void ChooserWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
    Q_EMIT quitRequested();
}

void ChooserWindow::mousePressEvent(QMouseEvent* event)
{
    moveByBackground(*this, *event);
}

void ChooserWindow::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), kit::color::sidebar);
}

} // namespace mosaro::shell
