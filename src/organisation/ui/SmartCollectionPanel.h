#pragma once

#include "organisation/ui/MRLibraryCollectionSource.h"

namespace mosaro::organisation {

/// What opens the editor of a smart collection as a sheet of the sidebar's window. Does nothing while the
/// window has a sheet.
[[nodiscard]] SmartCollectionSheet smartCollectionSheet(const SidebarEnvironment& environment,
                                                        QWidget& sidebar);

} // namespace mosaro::organisation
