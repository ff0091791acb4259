#pragma once

#include "shell/LaunchOptions.h"

namespace mosaro::shell {

/// Where the application stands, as far as showing itself goes.
struct Standing {
    bool chooserVisible = false;
    bool windowVisible = false;
    bool miniVisible = false;
    bool loaded = false; ///< A library is shown in the window's controller.
};

enum class StartStep { ShowChooser, OpenRememberedLibrary, OpenNamedLibrary };
/// What the start leads to. The modifier held at launch goes before everything else.
[[nodiscard]] StartStep startStep(const LaunchOptions& options, bool modifierHeld);

/// What a wish to see the application leads to.
enum class ShowStep { Nothing, OpenLibrary, RaiseWindow, ShowChooser };
/// On a second start of the program.
[[nodiscard]] ShowStep reopenStep(const Standing& standing);
/// On the command that shows the main window.
[[nodiscard]] ShowStep showMosaroStep(const Standing& standing);

} // namespace mosaro::shell
