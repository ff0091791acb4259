#include "shell/MenuRules.h"

namespace mosaro::shell {

bool validateMenuItem(Command command, const ApplicationSituation& situation)
{
    switch (command) {
    case Command::ShowMosaro:
        return !situation.chooserVisible;
    case Command::SwitchToLibrary:
    case Command::Quit:
        return !situation.busy;
    case Command::ShowPreferences:
        return situation.windowVisible && !situation.busy;
    case Command::NoLibrary:
        return false;
    default:
        return true;
    }
}

} // namespace mosaro::shell
