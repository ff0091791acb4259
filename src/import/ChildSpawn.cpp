#include "import/ChildSpawn.h"

#include "base/Text.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <vector>

namespace mosaro::importing {

namespace {

/// Soft and hard limit: the soft one comes first, so that the child dies of a signal that tells why.
QByteArray cpuLimits(int seconds)
{
    const int soft = std::max(1, seconds);
    return QByteArray::number(soft) + ':' + QByteArray::number(soft + 1);
}

/// The limits are set by a small program that then becomes the child, since spawning knows none.
std::vector<QByteArray> commandLine(const ChildStart& start)
{
    std::vector<QByteArray> line = {"prlimit", "--core=0", "--cpu=" + cpuLimits(start.limits.seconds),
                                    "--fsize=" + QByteArray::number(start.limits.outputBytes)};
    if (start.limits.memoryBytes > 0)
        line.push_back("--as=" + QByteArray::number(start.limits.memoryBytes));
    line.push_back("--");
    line.push_back(QFile::encodeName(start.path));
    for (const QString& argument : start.arguments)
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
    explicit SpawnSettings(const ChildStart& start)
    {
        posix_spawn_file_actions_init(&m_actions);
        posix_spawn_file_actions_adddup2(&m_actions, start.input, STDIN_FILENO);
        posix_spawn_file_actions_adddup2(&m_actions, start.output, STDOUT_FILENO);
        posix_spawn_file_actions_addopen(&m_actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_addclosefrom_np(&m_actions, STDERR_FILENO + 1);
        posix_spawn_file_actions_addchdir_np(&m_actions, start.folder.constData());
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

} // namespace

pid_t spawnChild(const ChildStart& start)
{
    return SpawnSettings(start).spawn(commandLine(start),
                                      {"PATH=/usr/local/bin:/usr/bin:/bin", "HOME=/nonexistent", "LANG=C",
                                       "TMPDIR=" + start.folder, "OMP_NUM_THREADS=1"});
}

// The group ends while the child's number is still taken, so that no stranger has it by then.
int endAndReap(pid_t child)
{
    ::kill(-child, SIGKILL);
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return status;
}

base::Failure childNotStarted(const QString& program)
{
    return {base::text("Failure.Child.NotStarted", QFileInfo(program).fileName())};
}

base::Failure childDied(const QString& program)
{
    return {base::text("Failure.Child.Died", QFileInfo(program).fileName())};
}

} // namespace mosaro::importing
