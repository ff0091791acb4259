#pragma once

#include "organisation/ColorCommands.h"

#include <QMenu>

namespace mosaro::organisation {

/// The menu of the colour grid, for the right click and the action button alike.
class ColorMenu : public QMenu {
    Q_OBJECT

public:
    /// Asked at the moment the menu opens.
    struct Answers {
        std::function<bool(ColorCommand)> isPossible;
        std::function<LikeMarks()> likeMarks;
        std::function<QIcon()> selectedColor; ///< Of the one selected swatch.
    };
    ColorMenu(Answers answers, QWidget* parent);

Q_SIGNALS:
    /// Before the commands are looked at.
    void willOpen();
    void chosen(mosaro::organisation::ColorCommand command);

private:
    QAction* addCommand(QMenu& menu, ColorCommand command, const QString& title);
    void validate();

    Answers m_answers;
    QMenu* m_marks;
    std::vector<std::pair<ColorCommand, QAction*>> m_commands;
    QAction* m_like;
    QAction* m_unlike;
    QAction* m_showColor;
};

} // namespace mosaro::organisation
