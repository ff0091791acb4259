#pragma once

#include <QString>

namespace mosaro::importing {

/// The path of one of our own decoders, programs that are built with this library and run through runChild():
/// beside the running program, among the installed ones, or where it was built.
[[nodiscard]] QString decoderProgram(const QString& name);

} // namespace mosaro::importing
