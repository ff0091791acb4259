#include "kit/GridViewAccessible.h"

#include "kit/GridView.h"

#include <QAccessibleWidget>
#include <QHash>

namespace mosaro::kit {

namespace {

/// One item. Made when a reader asks, and kept by the list's interface.
class GridItemAccessible final : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    GridItemAccessible(GridView& view, int index) : m_view(&view), m_index(index) {}

    bool isValid() const override
    {
        return m_view != nullptr && m_view->model() != nullptr && m_index < m_view->model()->count();
    }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(m_view); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }

    QString text(QAccessible::Text kind) const override
    {
        if (!isValid()) {
            return {};
        }
        if (const GridSection* section = m_view->closedSectionOf(m_index)) {
            return kind == QAccessible::Name ? section->title.trimmed() : QString();
        }
        if (kind == QAccessible::Name) {
            return m_view->model()->title(m_index);
        }
        return kind == QAccessible::Description ? m_view->model()->accessibleText(m_index) : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}

    QRect rect() const override
    {
        const QRect frame = m_view == nullptr ? QRect() : m_view->itemFrameAtIndex(m_index);
        return m_view == nullptr ? frame : frame.translated(m_view->viewport()->mapToGlobal(QPoint()));
    }

    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.selectable = state.focusable = true;
        state.invalid = !isValid();
        if (isValid()) {
            // The current cell of a closed section stands for its header.
            const bool hidden = m_view->closedSectionOf(m_index) != nullptr;
            state.expandable = state.collapsed = hidden;
            state.invisible = hidden && m_view->currentIndex() != m_index;
            state.selected = m_view->selectionIndexes().contains(m_index);
            state.focused = m_view->hasFocus() && m_view->currentIndex() == m_index;
            state.offscreen = !m_view->viewport()->rect().intersects(m_view->itemFrameAtIndex(m_index));
        }
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }
    void doAction(const QString& name) override
    {
        if (!isValid() || !actionNames().contains(name)) {
            return;
        }
        m_view->setFocus(Qt::OtherFocusReason);
        m_view->setSelectionIndexes(GridSelection({m_index, m_index}));
        m_view->scrollIndexToVisible(m_index);
        if (name == pressAction()) {
            Q_EMIT m_view->activated(m_index);
        }
    }

    [[nodiscard]] int index() const { return m_index; }

private:
    QPointer<GridView> m_view;
    int m_index;
};

class GridViewAccessible final : public QAccessibleWidget {
public:
    explicit GridViewAccessible(GridView* view) : QAccessibleWidget(view, QAccessible::List) {}

    ~GridViewAccessible() override
    {
        for (const QAccessible::Id id : std::as_const(m_items)) {
            QAccessible::deleteAccessibleInterface(id);
        }
    }

    int childCount() const override { return view().model() == nullptr ? 0 : view().model()->count(); }

    QAccessibleInterface* child(int index) const override
    {
        if (index < 0 || index >= childCount()) {
            return nullptr;
        }
        auto found = m_items.constFind(index);
        if (found == m_items.constEnd()) {
            auto* item = new GridItemAccessible(view(), index); // Qt's registry owns it
            found = m_items.insert(index, QAccessible::registerAccessibleInterface(item));
        }
        return QAccessible::accessibleInterface(*found);
    }

    int indexOfChild(const QAccessibleInterface* child) const override
    {
        const auto* item = dynamic_cast<const GridItemAccessible*>(child);
        return item == nullptr ? -1 : item->index();
    }

    QAccessibleInterface* childAt(int x, int y) const override
    {
        return child(view().indexAt(view().viewport()->mapFromGlobal(QPoint(x, y))));
    }

    QAccessibleInterface* focusChild() const override { return child(view().currentIndex()); }

private:
    [[nodiscard]] GridView& view() const { return *static_cast<GridView*>(widget()); }

    mutable QHash<int, QAccessible::Id> m_items;
};

QAccessibleInterface* makeInterface(const QString&, QObject* object)
{
    auto* view = qobject_cast<GridView*>(object);
    return view == nullptr ? nullptr : new GridViewAccessible(view);
}

} // namespace

void installGridViewAccessibility()
{
    static const bool installed = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    Q_UNUSED(installed)
}

void GridView::announceCurrent()
{
    if (m_current < 0 || !hasFocus() || !QAccessible::isActive()) {
        return;
    }
    QAccessibleEvent event(this, QAccessible::Focus);
    event.setChild(m_current);
    QAccessible::updateAccessibility(&event);
}

} // namespace mosaro::kit
