#pragma once

#include "base/PropertyList.h"

#include <memory>
#include <plist/plist.h>

namespace mosaro::base {

struct FreePlist {
    void operator()(void* node) const { plist_free(node); }
};
using PlistPointer = std::unique_ptr<void, FreePlist>;

/// A value as a tree of the library. XML cannot hold control characters: they are left out for it.
[[nodiscard]] Result<PlistPointer> plistFromVariant(const QVariant& value, PropertyListFormat format);

/// The reverse. The tree has been looked through: it is no deeper than allowed.
[[nodiscard]] QVariant variantFromPlist(plist_t node);

} // namespace mosaro::base
