#include "import/ChildProcess.h"

#include "base/Text.h"
#include "import/ChildSpawn.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace mosaro::importing {

namespace {

QString executablePath(const QString& program)
{
    if (!program.contains(u'/'))
        return QStandardPaths::findExecutable(program);
    return QFileInfo(program).isExecutable() ? program : QString();
}

/// A file without a name: the child may seek in it and the writer never waits for the reader.
int openInput(const QByteArray& input)
{
    if (input.isEmpty())
        return ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    const int file = ::memfd_create("input", MFD_CLOEXEC);
    qsizetype written = 0;
    while (file >= 0 && written < input.size()) {
        const ssize_t count =
            ::write(file, input.constData() + written, static_cast<std::size_t>(input.size() - written));
        if (count < 0 && errno != EINTR) {
            ::close(file);
            return -1;
        }
        written += std::max<ssize_t>(count, 0);
    }
    if (file >= 0)
        ::lseek(file, 0, SEEK_SET);
    return file;
}

enum class End { Exited, TooLate, TooMuch };

/// What has come through the pipe up to now. False at its end.
bool drain(int pipe, QByteArray& output)
{
    std::array<char, 65536> buffer;
    for (;;) {
        const ssize_t count = ::read(pipe, buffer.data(), buffer.size());
        if (count > 0)
            output.append(buffer.data(), count);
        else if (count == 0 || errno != EINTR)
            return count < 0 && errno == EAGAIN;
        if (count > 0 && static_cast<std::size_t>(count) < buffer.size())
            return true;
    }
}

/// Collects the output until the child has ended; a process that it left behind is not waited for.
End collect(int pipe, int process, const ChildLimits& limits, QByteArray& output)
{
    QElapsedTimer timer;
    timer.start();
    std::array<pollfd, 2> ends = {pollfd{pipe, POLLIN, 0}, pollfd{process, POLLIN, 0}};
    for (;;) {
        const qint64 left = limits.seconds * qint64(1000) - timer.elapsed();
        if (left <= 0)
            return End::TooLate;
        if (::poll(ends.data(), ends.size(), static_cast<int>(left)) < 0)
            continue; // A signal; the clock is looked at again.
        const bool ended = ends[1].revents != 0;
        if ((ended || ends[0].revents != 0) && ends[0].fd >= 0 && !drain(pipe, output))
            ends[0].fd = -1;
        if (output.size() > limits.outputBytes)
            return End::TooMuch;
        if (ended)
            return End::Exited;
    }
}

} // namespace

base::Result<QByteArray> runChild(const QString& program, const QStringList& arguments,
                                  const ChildLimits& limits, const QByteArray& input)
{
    const QString path = executablePath(program);
    if (path.isEmpty())
        return base::Failure{base::text("Failure.Child.Missing", QFileInfo(program).fileName())};
    const QTemporaryDir folder;
    const Descriptor standardInput(openInput(input));
    std::array<int, 2> pipe = {-1, -1};
    if (!folder.isValid() || standardInput.get() < 0 || ::pipe2(pipe.data(), O_CLOEXEC) != 0)
        return childNotStarted(program);
    const Descriptor readEnd(pipe[0]);
    Descriptor writeEnd(pipe[1]);
    ::fcntl(readEnd.get(), F_SETFL, O_NONBLOCK);

    const pid_t child = spawnChild(
        {path, arguments, limits, QFile::encodeName(folder.path()), standardInput.get(), writeEnd.get()});
    if (child < 0)
        return childNotStarted(program);
    writeEnd.reset(-1);
    const Descriptor process(static_cast<int>(::syscall(SYS_pidfd_open, child, 0)));
    QByteArray output;
    const End end = collect(readEnd.get(), process.get(), limits, output);
    const int status = endAndReap(child);
    const bool outOfTime = end == End::Exited && WIFSIGNALED(status) && WTERMSIG(status) == SIGXCPU;
    if (end == End::TooLate || outOfTime)
        return base::Failure{base::text("Failure.Image.TooSlow")};
    if (end == End::TooMuch)
        return base::Failure{base::text("Failure.Child.Output")};
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        return childDied(program);
    return output;
}

} // namespace mosaro::importing
