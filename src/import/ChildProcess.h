#pragma once

#include "base/Result.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace mosaro::importing {

struct ChildLimits {
    int seconds = 0;        ///< By the clock and by the processor.
    qint64 memoryBytes = 0; ///< Of address space; 0 for no limit.
    qint64 outputBytes = 0; ///< On standard output, and of any file that it writes.
};

/// Runs another program and answers what it wrote on its standard output. `program` is a path, or a name to
/// be found in PATH. It can seek in its standard input, which is `input`, and in its output. It runs in a
/// temporary folder of its own, which goes away with it, with a nearly empty environment, and it is ended
/// together with all that it has started when it reaches a limit. Blocks; may be called on any thread,
/// several at once.
[[nodiscard]] base::Result<QByteArray> runChild(const QString& program, const QStringList& arguments,
                                                const ChildLimits& limits, const QByteArray& input = {});

} // namespace mosaro::importing
