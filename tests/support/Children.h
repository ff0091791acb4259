#pragma once

#include <QDir>
#include <cerrno>
#include <sys/wait.h>

namespace mosaro::test {

/// What this process holds open: nothing may be left by a child.
[[nodiscard]] inline qsizetype openDescriptors()
{
    return QDir(QStringLiteral("/proc/self/fd"))
        .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
        .size();
}

/// Neither a running nor a dead one.
[[nodiscard]] inline bool hasNoChild()
{
    return ::waitpid(-1, nullptr, WNOHANG) == -1 && errno == ECHILD;
}

} // namespace mosaro::test
