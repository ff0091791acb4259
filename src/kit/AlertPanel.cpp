#include "kit/AlertPanel.h"

#include "base/Text.h"
#include "kit/Look.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace mosaro::kit {

namespace {

constexpr int kTextWidth = 340;
constexpr int kMarkSize = 48;

QLabel* textLabel(const QString& text, const QFont& textFont)
{
    auto* label = new QLabel(text);
    label->setFont(textFont);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setFixedWidth(kTextWidth);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

} // namespace

AlertPanel::AlertPanel(const base::AlertRequest& request, QWidget* parent) : QDialog(parent)
{
    setWindowTitle(base::text("Basic.Alert"));
    setAccessibleName(request.messageText);
    setAccessibleDescription(request.informativeText);
    setModal(true);
    QPalette raised = palette();
    raised.setColor(QPalette::Window, color::raised);
    setPalette(raised);

    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(metric::wideGap, metric::wideGap, metric::wideGap, metric::wideGap);
    layout->setHorizontalSpacing(16);
    layout->setVerticalSpacing(metric::gap);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    auto* mark = new QLabel;
    mark->setPixmap(
        icon(QStringLiteral("org.mosaro.Mosaro")).pixmap(QSize(kMarkSize, kMarkSize), devicePixelRatioF()));
    layout->addWidget(mark, 0, 0, 3, 1, Qt::AlignTop);
    int row = 0;
    if (!request.messageText.isEmpty()) {
        layout->addWidget(textLabel(request.messageText, kit::font(14, QFont::DemiBold)), row++, 1);
    }
    if (!request.informativeText.isEmpty()) {
        layout->addWidget(textLabel(request.informativeText, kit::font(13)), row++, 1);
    }

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(metric::gap);
    buttons->addStretch();
    if (!request.alternateButton.isEmpty()) {
        m_alternate = new QPushButton(request.alternateButton);
        m_alternate->setAutoDefault(false);
        connect(m_alternate, &QPushButton::clicked, this, &QDialog::reject);
        buttons->addWidget(m_alternate);
    }
    const QString confirm = request.defaultButton.isEmpty() ? base::text("Basic.OK") : request.defaultButton;
    m_default = new QPushButton(confirm);
    m_default->setDefault(true);
    connect(m_default, &QPushButton::clicked, this, &QDialog::accept);
    buttons->addWidget(m_default);
    layout->setRowMinimumHeight(row, metric::gap);
    layout->addLayout(buttons, row + 1, 1);
    m_default->setFocus();
}

int AlertPanel::ask()
{
    return exec() == QDialog::Accepted ? 1 : 0;
}

} // namespace mosaro::kit
