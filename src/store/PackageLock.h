#pragma once

#include "base/Result.h"

#include <QString>

namespace mosaro::store {

/// One writer for a package: an advisory lock (flock) on its directory, held as long as the object lives. The
/// kernel drops it when the process dies.
class PackageLock {
public:
    /// A failure names the process that holds the library.
    [[nodiscard]] static base::Result<PackageLock> acquire(const QString& packagePath);

    PackageLock() = default;
    PackageLock(PackageLock&& other) noexcept;
    PackageLock& operator=(PackageLock&& other) noexcept;
    ~PackageLock();

private:
    explicit PackageLock(int descriptor) : m_descriptor(descriptor) {}
    int m_descriptor = -1;
};

} // namespace mosaro::store
