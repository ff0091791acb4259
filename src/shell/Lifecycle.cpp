#include "shell/Lifecycle.h"

namespace mosaro::shell {

StartStep startStep(const LaunchOptions& options, bool modifierHeld)
{
    if (modifierHeld || options.chooseLibrary) {
        return StartStep::ShowChooser;
    }
    return options.library.isEmpty() ? StartStep::OpenRememberedLibrary : StartStep::OpenNamedLibrary;
}

ShowStep reopenStep(const Standing& standing)
{
    const bool anyVisible = standing.windowVisible || standing.miniVisible;
    if (standing.chooserVisible || (anyVisible && standing.loaded)) {
        return ShowStep::Nothing;
    }
    if (!anyVisible && !standing.loaded) {
        return ShowStep::OpenLibrary;
    }
    if (!standing.windowVisible && standing.loaded) {
        return ShowStep::RaiseWindow;
    }
    return ShowStep::ShowChooser;
}

ShowStep showMosaroStep(const Standing& standing)
{
    if (standing.windowVisible) {
        return ShowStep::Nothing;
    }
    return standing.loaded ? ShowStep::RaiseWindow : ShowStep::OpenLibrary;
}

} // namespace mosaro::shell
