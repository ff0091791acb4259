#pragma once

#include "shell/MenuTable.h"

#include <QObject>
#include <QPointer>
#include <functional>

class QWidget;

namespace mosaro::shell {

/// The Edit menu: its commands go to the text field that has the keyboard. Selecting all or nothing goes to
/// the grid when no field has it.
class EditCommands : public QObject {
    Q_OBJECT

public:
    struct Grid {
        std::function<void()> selectAll;
        std::function<void()> selectNone;
    };
    explicit EditCommands(Grid grid, QObject* parent = nullptr);

    [[nodiscard]] bool validate(Command command) const;
    void perform(Command command);

private:
    void focusChanged(QWidget* now);
    /// The text field in charge, or null.
    [[nodiscard]] QWidget* field() const;

    Grid m_grid;
    QPointer<QWidget> m_focus; ///< The last to have the keyboard, menus aside.
};

} // namespace mosaro::shell
