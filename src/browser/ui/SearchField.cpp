#include "browser/ui/SearchField.h"

#include "base/Text.h"
#include "kit/IconButton.h"
#include "kit/Look.h"
#include "kit/Paint.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <optional>

namespace mosaro::browser {

namespace {

constexpr QSize kSize(228, 28);

std::optional<SearchKey> searchKey(int key)
{
    switch (key) {
    case Qt::Key_Escape:
        return SearchKey::Cancel;
    case Qt::Key_Up:
        return SearchKey::Up;
    case Qt::Key_Down:
        return SearchKey::Down;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return SearchKey::Return;
    default:
        return std::nullopt;
    }
}

} // namespace

SearchField::SearchField(QWidget* parent)
    : QWidget(parent),
      m_magnifier(new kit::IconButton(QStringLiteral("search"), base::text("Tooltip.Search.Choices"), this)),
      m_edit(new QLineEdit(this)),
      m_clear(new kit::IconButton(QStringLiteral("close"), base::text("Tooltip.Search.Clear"), this))
{
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    m_magnifier->setPopupMode(QToolButton::InstantPopup);
    m_edit->setFrame(false);
    m_edit->setFont(kit::font(13));
    m_edit->setToolTip(base::text("Tooltip.Search"));
    m_edit->setAccessibleName(base::text("Tooltip.Search"));
    QPalette colors = m_edit->palette();
    colors.setColor(QPalette::Base, Qt::transparent);
    m_edit->setPalette(colors);
    m_edit->installEventFilter(this);
    m_clear->setIconSize({10, 10});
    m_clear->setVisible(false);
    setFocusProxy(m_edit);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(6, 1, 6, 1);
    row->setSpacing(2);
    row->addWidget(m_magnifier);
    row->addWidget(m_edit);
    row->addWidget(m_clear);
    connect(m_clear, &QToolButton::clicked, this, [this] {
        setText(QString());
        m_edit->setFocus();
    });
    connect(m_edit, &QLineEdit::textChanged, this, [this](const QString& text) {
        m_clear->setVisible(!text.isEmpty());
        Q_EMIT textChanged();
    });
}

QString SearchField::text() const
{
    return m_edit->text();
}

void SearchField::setText(const QString& text)
{
    m_edit->setText(text);
}

void SearchField::setPlaceholder(const QString& text)
{
    m_edit->setPlaceholderText(text);
}

void SearchField::placeCaretAtEnd()
{
    m_edit->end(false);
}

void SearchField::setTemplateMenu(QMenu& menu)
{
    m_magnifier->setMenu(&menu);
}

QSize SearchField::sizeHint() const
{
    return kSize;
}

bool SearchField::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        update();
    }
    if (event->type() == QEvent::KeyPress && m_handler) {
        const auto key = searchKey(static_cast<QKeyEvent*>(event)->key());
        if (key && m_handler(*key)) {
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void SearchField::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF pill = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    kit::paint::panel(painter, pill, kit::color::field, kit::color::fieldBorder, pill.height() / 2);
    if (m_edit->hasFocus()) {
        kit::paint::focusRing(painter, rect(), height() / 2.0);
    }
}

} // namespace mosaro::browser
