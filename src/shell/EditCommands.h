#pragma once

#include "shell/MenuTable.h"

#include <QObject>
#include <QPointer>
#include <functional>
#include <vector>

class QMimeData;
class QWidget;

namespace mosaro::shell {

/// The Edit menu: its commands go to the text field that has the keyboard. When no field has it, selecting
/// all or nothing goes to the grid or list that has it, else to the browser's grid, and pasting to the pane
/// that has it.
class EditCommands : public QObject {
    Q_OBJECT

public:
    struct Grid {
        std::function<void()> selectAll;
        std::function<void()> selectNone;
    };
    /// A part of the window that takes what is pasted.
    struct Pane {
        QWidget* widget; ///< Outlives this.
        std::function<void(const QMimeData& data)> paste;
    };
    EditCommands(Grid grid, std::vector<Pane> panes, QObject* parent = nullptr);

    [[nodiscard]] bool validate(Command command) const;
    void perform(Command command);

private:
    void focusChanged(QWidget* now);
    /// In the grid or list that has the keyboard, else in the browser's grid.
    void select(bool all) const;
    /// The text field in charge, or null.
    [[nodiscard]] QWidget* field() const;

    /// The pane that has the keyboard, or null.
    [[nodiscard]] const Pane* pane() const;

    Grid m_grid;
    std::vector<Pane> m_panes;
    QPointer<QWidget> m_focus; ///< The last to have the keyboard, menus aside.
};

} // namespace mosaro::shell
