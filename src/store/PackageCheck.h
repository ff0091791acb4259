#pragma once

#include "base/Result.h"
#include "store/LibraryPackage.h"
#include "store/StoreContext.h"

namespace mosaro::store {

/// Whether a directory may be opened as a library, by looking only: an empty one, or one with a store. A
/// directory of other things is not turned into a library, and a library whose store is gone gets no new,
/// empty one, beside which every item would seem to be a leftover.
[[nodiscard]] base::Result<void> checkPackage(const LibraryPackage& package);

/// Whether the store can be read: a smaller one as a whole, of a large one every table's beginning. The whole
/// of a large one is for verifyLibrary().
[[nodiscard]] base::Result<void> probeStore(StoreContext& context);

} // namespace mosaro::store
