#pragma once

#include "import/ChildProcess.h"

#include <QString>

namespace mosaro::importing {

/// The path of one of our own decoders, programs that are built with this library and run through runChild()
/// or DecoderProcess:
/// beside the running program, among the installed ones, or where it was built.
[[nodiscard]] QString decoderProgram(const QString& name);

/// Limits for such a program. One that is built with a sanitizer maps more address space than any limit would
/// allow, so that it gets none.
[[nodiscard]] ChildLimits decoderLimits(qint64 memoryBytes, qint64 outputBytes);

} // namespace mosaro::importing
