#pragma once

#include "base/Result.h"
#include "import/ChildProcess.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <sys/types.h>
#include <unistd.h>

namespace mosaro::importing {

// What runChild() and DecoderProcess share: a child that starts and ends without an event loop.

/// A file descriptor that is closed with this object.
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

struct ChildStart {
    QString path;
    QStringList arguments;
    ChildLimits limits; ///< Seconds count by the processor only.
    QByteArray folder;  ///< Where it runs and puts temporary files.
    int input = -1;
    int output = -1;
};

/// Starts a program as the first of a process group, with two descriptors, a nearly empty environment, no
/// handlers and no blocked signals. Answers the number of its process, or -1.
[[nodiscard]] pid_t spawnChild(const ChildStart& start);

/// Ends the child's whole group, and waits for the child. Answers its status.
int endAndReap(pid_t child);

/// The reasons for the user.
[[nodiscard]] base::Failure childNotStarted(const QString& program);
[[nodiscard]] base::Failure childDied(const QString& program);

} // namespace mosaro::importing
