#pragma once

#include "kit/MarkMenu.h"
#include "organisation/TagCommands.h"

#include <functional>
#include <set>
#include <vector>

namespace mosaro::organisation {

/// The menu of the list of tags, for the right click and the action button alike.
class TagMenu : public QMenu {
    Q_OBJECT

public:
    /// `isPossible` answers for a command at the moment the menu opens; `choices` gives the colours that
    /// occur among the selected tags.
    TagMenu(std::function<bool(TagCommand)> isPossible, std::function<std::set<int>()> choices,
            QWidget* parent);

Q_SIGNALS:
    /// Before the commands are looked at.
    void willOpen();
    void chosen(mosaro::organisation::TagCommand command);
    /// One of the choices of TagColors.h.
    void tagColorChosen(int choice);

private:
    void addCommand(TagCommand command, const QString& title);
    void addColors();
    void validate();
    void markColors();
    void clearMarks();

    std::function<bool(TagCommand)> m_isPossible;
    std::function<std::set<int>()> m_choices;
    std::vector<std::pair<TagCommand, QAction*>> m_commands;
    kit::MarkMenu* m_colors;
};

} // namespace mosaro::organisation
