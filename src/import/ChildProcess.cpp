#include "import/ChildProcess.h"

#include "base/Text.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace mosaro::importing {

namespace {

class Descriptor {
public:
    explicit Descriptor(int number = -1) : m_number(number) {}
    ~Descriptor() { reset(-1); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    void reset(int number)
    {
        if (m_number >= 0)
            ::close(m_number);
        m_number = number;
    }
    [[nodiscard]] int get() const { return m_number; }

private:
    int m_number;
};

base::Failure notStarted(const QString& program)
{
    return {base::text("Failure.Child.NotStarted", QFileInfo(program).fileName())};
}

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

/// The limits are set by a small program that then becomes the child, since spawning knows none.
std::vector<QByteArray> commandLine(const QString& path, const QStringList& arguments,
                                    const ChildLimits& limits)
{
    std::vector<QByteArray> line = {"prlimit", "--core=0",
                                    "--cpu=" + QByteArray::number(std::max(1, limits.seconds)),
                                    "--fsize=" + QByteArray::number(limits.outputBytes)};
    if (limits.memoryBytes > 0)
        line.push_back("--as=" + QByteArray::number(limits.memoryBytes));
    line.push_back("--");
    line.push_back(QFile::encodeName(path));
    for (const QString& argument : arguments)
        line.push_back(QFile::encodeName(argument));
    return line;
}

std::vector<char*> pointersTo(std::vector<QByteArray>& texts)
{
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (QByteArray& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

/// What the child has of this process: three descriptors, a folder, no handlers and no blocked signals.
class SpawnSettings {
public:
    SpawnSettings(int input, int output, const QByteArray& folder)
    {
        posix_spawn_file_actions_init(&m_actions);
        posix_spawn_file_actions_adddup2(&m_actions, input, STDIN_FILENO);
        posix_spawn_file_actions_adddup2(&m_actions, output, STDOUT_FILENO);
        posix_spawn_file_actions_addopen(&m_actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_addclosefrom_np(&m_actions, STDERR_FILENO + 1);
        posix_spawn_file_actions_addchdir_np(&m_actions, folder.constData());
        sigset_t none;
        sigset_t all;
        sigemptyset(&none);
        sigfillset(&all);
        posix_spawnattr_init(&m_attributes);
        posix_spawnattr_setsigmask(&m_attributes, &none);
        posix_spawnattr_setsigdefault(&m_attributes, &all);
        posix_spawnattr_setpgroup(&m_attributes, 0);
        posix_spawnattr_setflags(&m_attributes,
                                 POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    ~SpawnSettings()
    {
        posix_spawn_file_actions_destroy(&m_actions);
        posix_spawnattr_destroy(&m_attributes);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;

    /// The number of the child's process, or -1.
    [[nodiscard]] pid_t spawn(std::vector<QByteArray> line, std::vector<QByteArray> environment) const
    {
        pid_t child = -1;
        const int error = ::posix_spawn(&child, "/usr/bin/prlimit", &m_actions, &m_attributes,
                                        pointersTo(line).data(), pointersTo(environment).data());
        return error == 0 ? child : -1;
    }

private:
    posix_spawn_file_actions_t m_actions{};
    posix_spawnattr_t m_attributes{};
};

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

/// Ends the whole group while the child's number is still taken, so that no stranger has it by then.
int endAndReap(pid_t child)
{
    ::kill(-child, SIGKILL);
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return status;
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
        return notStarted(program);
    const Descriptor readEnd(pipe[0]);
    Descriptor writeEnd(pipe[1]);
    ::fcntl(readEnd.get(), F_SETFL, O_NONBLOCK);

    const QByteArray folderName = QFile::encodeName(folder.path());
    const pid_t child = SpawnSettings(standardInput.get(), writeEnd.get(), folderName)
                            .spawn(commandLine(path, arguments, limits),
                                   {"PATH=/usr/local/bin:/usr/bin:/bin", "HOME=/nonexistent", "LANG=C",
                                    "TMPDIR=" + folderName, "OMP_NUM_THREADS=1"});
    if (child < 0)
        return notStarted(program);
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
        return base::Failure{base::text("Failure.Child.Died", QFileInfo(program).fileName())};
    return output;
}

} // namespace mosaro::importing
