#pragma once

#include "base/Result.h"

#include <QByteArray>

namespace mosaro::base {

/// Containers within containers: as deep as any list of ours may be, read or written.
inline constexpr int kPropertyListDepth = 64;
inline constexpr qint64 kPropertyListBytes = 64LL * 1024 * 1024;

/// Looks through a property list's structure before the parser sees it: depth, loops, and how large it would
/// become unfolded, since a binary list may name one object many times over. A list that passes is safe to
/// hand to the parser, which still judges whether it is well formed.
[[nodiscard]] Result<void> checkPropertyList(const QByteArray& data);

[[nodiscard]] bool isBinaryPropertyList(const QByteArray& data);

/// The common reasons.
[[nodiscard]] Failure damagedPropertyList();
[[nodiscard]] Failure oversizedPropertyList();

} // namespace mosaro::base
