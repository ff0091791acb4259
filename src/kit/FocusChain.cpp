#include "kit/FocusChain.h"

#include <QWidget>

namespace mosaro::kit {

namespace {

/// A part that hands the keyboard on, such as the text of a date field, is no stop of its own.
bool takesFocus(const QWidget& widget)
{
    return widget.isVisible() && widget.isEnabled() && (widget.focusPolicy() & Qt::TabFocus) != 0 &&
           widget.focusProxy() == nullptr;
}

} // namespace

QList<QWidget*> focusChain(QWidget& content)
{
    QList<QWidget*> chain;
    QWidget* widget = &content;
    do {
        if ((widget == &content || content.isAncestorOf(widget)) && takesFocus(*widget)) {
            chain.append(widget);
        }
        widget = widget->nextInFocusChain();
    } while (widget != nullptr && widget != &content);
    return chain;
}

bool moveFocusWithin(QWidget& content, bool next)
{
    const QList<QWidget*> chain = focusChain(content);
    if (chain.isEmpty()) {
        return true;
    }
    const qsizetype count = chain.size();
    const qsizetype current = chain.indexOf(content.window()->focusWidget());
    const qsizetype start = next ? 0 : count - 1;
    const qsizetype target = current < 0 ? start : (current + (next ? 1 : count - 1)) % count;
    chain.at(target)->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

} // namespace mosaro::kit
