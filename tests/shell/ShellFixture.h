#pragma once

#include "base/ZNUtilities.h"
#include "import/MediaClassification.h"
#include "shell/MRController.h"
#include "shell/ZNMenuManager.h"
#include "support/FakePlatform.h"

#include <memory>

namespace mosaro::test {

/// Everything that the main window works with: fakes of the desktop, real parts of the program.
struct ShellFixture {
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
        platform.fileIndex = std::make_unique<FakeFileIndex>();
        platform.aliases = std::make_unique<FakeAliases>();
        platform.bookmarks = std::make_unique<FakeBookmarks>();
        utilities.setPrompts(&prompts);
    }

    FakeTypes types;
    FakeThumbnailers thumbnailers;
    importing::MediaClassification classification{types, thumbnailers};
    platform::Platform platform;
    base::ZNUtilities utilities;
    shell::ZNMenuManager menus;
    FakePrompts& prompts;
    shell::WindowEnvironment environment;
};

} // namespace mosaro::test
