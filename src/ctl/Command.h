#pragma once

#include "ctl/Session.h"

#include <QCommandLineParser>
#include <vector>

namespace mosaro::ctl {

/// An option beside the general ones. `value` names what follows it; null for none.
struct OptionRow {
    const char* name;
    const char* value;
    const char* textKey;
};

/// One command. `operands` is what the help shows; `most` below 0 means any number.
struct Command {
    const char* name;
    const char* operands;
    int least;
    int most;
    const char* textKey;
    std::vector<OptionRow> options;
    int (*perform)(Session& session, const QCommandLineParser& line);
    /// More of the help, below the options; null for none.
    QString (*details)() = nullptr;
};

int create(Session& session, const QCommandLineParser& line);
int importFiles(Session& session, const QCommandLineParser& line);
int list(Session& session, const QCommandLineParser& line);
int show(Session& session, const QCommandLineParser& line);
int search(Session& session, const QCommandLineParser& line);
int collections(Session& session, const QCommandLineParser& line);
int tags(Session& session, const QCommandLineParser& line);
int colors(Session& session, const QCommandLineParser& line);
int tag(Session& session, const QCommandLineParser& line);
int smart(Session& session, const QCommandLineParser& line);
int collection(Session& session, const QCommandLineParser& line);
int move(Session& session, const QCommandLineParser& line);
int rate(Session& session, const QCommandLineParser& line);
int label(Session& session, const QCommandLineParser& line);
int verify(Session& session, const QCommandLineParser& line);

/// All commands, in the order of the help.
[[nodiscard]] const std::vector<Command>& commands();
/// Null for an unknown name.
[[nodiscard]] const Command* findCommand(const QString& name);

} // namespace mosaro::ctl
