#include "store/PackageLock.h"

#include "base/Text.h"

#include <QFile>
#include <QFileInfo>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace mosaro::store {

namespace {

/// The process that holds a lock on the open directory, from lines as
/// "1: FLOCK  ADVISORY  WRITE 1234 08:01:5678 0 EOF"; 0 when the kernel does not tell.
qint64 holderOf(int descriptor)
{
    struct stat status;
    if (::fstat(descriptor, &status) != 0)
        return 0;
    QFile locks(QStringLiteral("/proc/locks"));
    if (!locks.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray inode = ':' + QByteArray::number(static_cast<qulonglong>(status.st_ino));
    const QByteArray device = QByteArray::number(major(status.st_dev), 16).rightJustified(2, '0') + ':' +
                              QByteArray::number(minor(status.st_dev), 16).rightJustified(2, '0');
    qint64 likely = 0;
    const QByteArrayList lines = locks.readAll().split('\n');
    for (const QByteArray& line : lines) {
        const QByteArrayList words = line.simplified().split(' ');
        if (words.size() < 6 || words[1] != "FLOCK" || !words[5].endsWith(inode))
            continue;
        if (words[5] == device + inode)
            return words[4].toLongLong();
        likely = words[4].toLongLong(); // Layered file systems list the device of another layer.
    }
    return likely;
}

QString nameOfProcess(qint64 process)
{
    QFile file(QStringLiteral("/proc/%1/comm").arg(process));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).trimmed() : QString();
}

base::Failure heldFailure(int descriptor, const QString& package)
{
    const QString library = QFileInfo(package).fileName();
    const qint64 process = holderOf(descriptor);
    const QString name = process > 0 ? nameOfProcess(process) : QString();
    if (name.isEmpty())
        return {base::text("Failure.Library.Held", library)};
    return {base::text("Failure.Library.HeldBy", library, name, QString::number(process))};
}

} // namespace

base::Result<PackageLock> PackageLock::acquire(const QString& packagePath)
{
    const int descriptor =
        ::open(QFile::encodeName(packagePath).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return base::Failure{base::text("Failure.Library.CannotLock", packagePath, qt_error_string(errno))};
    PackageLock lock(descriptor);
    if (::flock(descriptor, LOCK_EX | LOCK_NB) == 0)
        return lock;
    if (errno == EWOULDBLOCK)
        return heldFailure(descriptor, packagePath);
    return base::Failure{base::text("Failure.Library.CannotLock", packagePath, qt_error_string(errno))};
}

PackageLock::PackageLock(PackageLock&& other) noexcept : m_descriptor(std::exchange(other.m_descriptor, -1))
{
}

PackageLock& PackageLock::operator=(PackageLock&& other) noexcept
{
    std::swap(m_descriptor, other.m_descriptor);
    return *this;
}

PackageLock::~PackageLock()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

} // namespace mosaro::store
