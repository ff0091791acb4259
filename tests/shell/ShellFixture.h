#pragma once

#include "base/ZNUtilities.h"
#include "shell/MRController.h"
#include "shell/ZNMenuManager.h"
#include "support/FakeDesktop.h"
#include "support/WindowTest.h"

namespace mosaro::test {

/// Everything that the main window works with: fakes of the desktop, real parts of the program.
struct ShellFixture : FakeDesktop {
    ShellFixture(store::ZNDBManager& library, base::ZNUserDefaults& defaults, FakePrompts& fakePrompts)
        : prompts(fakePrompts), environment{.library = library,
                                            .defaults = defaults,
                                            .utilities = utilities,
                                            .prompts = fakePrompts,
                                            .platform = platform,
                                            .classification = classification,
                                            .menus = menus,
                                            .unattended = true}
    {
        utilities.setPrompts(&prompts);
    }

    base::ZNUtilities utilities;
    shell::ZNMenuManager menus;
    FakePrompts& prompts;
    shell::WindowEnvironment environment;
};

} // namespace mosaro::test
