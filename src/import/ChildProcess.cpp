#include "import/ChildProcess.h"

#include "base/Text.h"
#include "import/ChildSpawn.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <algorithm>
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

/// A file without a name: the child may seek in it, and neither side ever waits for the other.
int openMemory()
{
    return ::memfd_create("child", MFD_CLOEXEC);
}

int openInput(const QByteArray& input)
{
    if (input.isEmpty())
        return ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    const int file = openMemory();
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

/// Whether it ends by itself in time; a process that it leaves behind is not waited for.
bool endsWithin(int process, int seconds)
{
    const QDeadlineTimer deadline(seconds * qint64(1000));
    for (;;) {
        pollfd end{process, POLLIN, 0};
        const int ready = ::poll(&end, 1, static_cast<int>(deadline.remainingTime()));
        if (ready >= 0) // Else it was a signal, and the clock is looked at again.
            return ready > 0;
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
    const Descriptor standardOutput(openMemory());
    if (!folder.isValid() || standardInput.get() < 0 || standardOutput.get() < 0)
        return childNotStarted(program);
    const pid_t child = spawnChild({path, arguments, limits, QFile::encodeName(folder.path()),
                                    standardInput.get(), standardOutput.get()});
    if (child < 0)
        return childNotStarted(program);
    const Descriptor process(static_cast<int>(::syscall(SYS_pidfd_open, child, 0)));
    const bool inTime = endsWithin(process.get(), limits.seconds);
    const int status = endAndReap(child);
    if (!inTime || (WIFSIGNALED(status) && WTERMSIG(status) == SIGXCPU))
        return base::Failure{base::text("Failure.Image.TooSlow")};
    QFile output;
    if (!output.open(standardOutput.get(), QIODevice::ReadOnly))
        return childDied(program);
    // The system lets it grow no further.
    if (output.size() >= limits.outputBytes)
        return base::Failure{base::text("Failure.Child.Output")};
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        return childDied(program);
    output.seek(0);
    return output.readAll();
}

} // namespace mosaro::importing
