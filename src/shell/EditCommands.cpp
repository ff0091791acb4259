#include "shell/EditCommands.h"

#include "kit/GridView.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <algorithm>

namespace mosaro::shell {

namespace {

const char* slotOf(Command command)
{
    switch (command) {
    case Command::Undo:
        return "undo";
    case Command::Redo:
        return "redo";
    case Command::Cut:
        return "cut";
    case Command::Copy:
        return "copy";
    case Command::Paste:
        return "paste";
    case Command::SelectAll:
        return "selectAll";
    default:
        return nullptr;
    }
}

/// Line and text editors have all of these as slots of these names.
bool isTextField(const QWidget& widget)
{
    const QMetaObject* meta = widget.metaObject();
    return meta->indexOfSlot("paste()") >= 0 && meta->indexOfSlot("undo()") >= 0;
}

bool validateInLine(const QLineEdit& line, Command command)
{
    switch (command) {
    case Command::Undo:
        return line.isUndoAvailable() && !line.isReadOnly();
    case Command::Redo:
        return line.isRedoAvailable() && !line.isReadOnly();
    case Command::Cut:
        return line.hasSelectedText() && !line.isReadOnly();
    case Command::Copy:
        return line.hasSelectedText();
    case Command::Paste:
        return !line.isReadOnly() && QApplication::clipboard()->mimeData() != nullptr &&
               QApplication::clipboard()->mimeData()->hasText();
    case Command::SelectAll:
        return !line.text().isEmpty();
    default:
        return false;
    }
}

} // namespace

EditCommands::EditCommands(Grid grid, std::vector<Pane> panes, QObject* parent)
    : QObject(parent), m_grid(std::move(grid)), m_panes(std::move(panes))
{
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { focusChanged(now); });
}

void EditCommands::focusChanged(QWidget* now)
{
    const bool isMenu = qobject_cast<QMenuBar*>(now) != nullptr || qobject_cast<QMenu*>(now) != nullptr;
    if (now != nullptr && !isMenu) {
        m_focus = now;
    }
}

QWidget* EditCommands::field() const
{
    return !m_focus.isNull() && m_focus->isVisible() && isTextField(*m_focus) ? m_focus.data() : nullptr;
}

const EditCommands::Pane* EditCommands::pane() const
{
    const auto found = std::find_if(m_panes.begin(), m_panes.end(), [this](const Pane& pane) {
        return !m_focus.isNull() && m_focus->isVisible() &&
               (pane.widget == m_focus || pane.widget->isAncestorOf(m_focus));
    });
    return found == m_panes.end() ? nullptr : &*found;
}

bool EditCommands::validate(Command command) const
{
    QWidget* text = field();
    if (text == nullptr) {
        return command == Command::SelectAll || command == Command::SelectNone ||
               (command == Command::Paste && pane() != nullptr);
    }
    if (const auto* line = qobject_cast<QLineEdit*>(text)) {
        return validateInLine(*line, command);
    }
    return slotOf(command) != nullptr;
}

void EditCommands::select(bool all) const
{
    auto* grid = qobject_cast<kit::GridView*>(m_focus.data());
    auto* list = qobject_cast<QListView*>(m_focus.data());
    if (grid != nullptr && grid->isVisible()) {
        all ? grid->selectAll() : grid->selectNone();
    } else if (list != nullptr && list->isVisible() &&
               list->selectionMode() == QAbstractItemView::ExtendedSelection) {
        all ? list->selectAll() : list->clearSelection();
    } else {
        all ? m_grid.selectAll() : m_grid.selectNone();
    }
}

void EditCommands::perform(Command command)
{
    if (QWidget* text = field()) {
        QMetaObject::invokeMethod(text, slotOf(command));
    } else if (command == Command::SelectAll || command == Command::SelectNone) {
        select(command == Command::SelectAll);
    } else if (const Pane* target = pane(); command == Command::Paste && target != nullptr) {
        if (const QMimeData* data = QApplication::clipboard()->mimeData()) {
            target->paste(*data);
        }
    }
}

} // namespace mosaro::shell
