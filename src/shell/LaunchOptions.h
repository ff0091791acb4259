#pragma once

#include "base/Result.h"

#include <QString>
#include <QStringList>
#include <optional>

namespace mosaro::shell {

/// What the command line asked for.
struct LaunchOptions {
    bool chooseLibrary = false;
    bool help = false;
    bool version = false;
    QString library = {};     ///< Absolute path of a package to open, or empty.
    QString snapshot = {};    ///< Absolute path of the picture to save; not empty: snapshot mode.
    QStringList imports = {}; ///< Absolute paths that the snapshot mode imports.
};

/// Reads the arguments, the program's name first. Unknown options and options without their value are
/// failures; bare paths outside the snapshot mode are accepted and change nothing: a package opened from the
/// file manager leaves the library as it is.
[[nodiscard]] base::Result<LaunchOptions> parseLaunchOptions(const QStringList& arguments);

/// What a command line leads to: options to start with, or the exit status when it is answered already.
struct CommandLine {
    LaunchOptions options;
    std::optional<int> status;
};

/// Reads the arguments and answers, on the terminal, what needs no window.
[[nodiscard]] CommandLine readCommandLine(const QStringList& arguments, bool windowPossible);

} // namespace mosaro::shell
