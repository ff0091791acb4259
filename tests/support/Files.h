#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <csignal>
#include <sys/resource.h>

namespace mosaro::test {

/// Writes a file with its folders; fails the program when that is impossible.
inline void writeFile(const QString& path, const QByteArray& bytes = {})
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qUtf8Printable(path));
}

/// A file's bytes; none when it cannot be read.
[[nodiscard]] inline QByteArray fileContents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// While it lives, no file may grow beyond so many bytes: what a full disk does to a write.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_former);
        const rlimit small{bytes, m_former.rlim_max};
        if (::setrlimit(RLIMIT_FSIZE, &small) != 0)
            qFatal("cannot limit the size of files");
    }
    ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &m_former); }
    Q_DISABLE_COPY_MOVE(FullDisk)

private:
    rlimit m_former{};
};

} // namespace mosaro::test
