#include "import/FileCopy.h"

#include "base/Text.h"
#include "store/LibraryPackage.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace mosaro::importing {

using base::Failure;
using base::Result;
using base::text;

namespace {

constexpr qsizetype kLongestFileName = 255;
constexpr qsizetype kRoomForSuffix = 16;
constexpr size_t kBufferSize = size_t(256) * 1024;

/// A file descriptor that closes itself.
class Descriptor {
public:
    explicit Descriptor(int number) : m_number(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor()
    {
        if (m_number >= 0) {
            ::close(m_number);
        }
    }
    [[nodiscard]] int number() const { return m_number; }
    [[nodiscard]] bool isOpen() const { return m_number >= 0; }
    /// Ends a written file. Its bytes set out for the disk at once, without waiting for them: so they are
    /// there before the record that will name them, should the power fail. Some file systems tell of a full
    /// disk only here.
    [[nodiscard]] bool close()
    {
        static_cast<void>(::sync_file_range(m_number, 0, 0, SYNC_FILE_RANGE_WRITE));
        return ::close(std::exchange(m_number, -1)) == 0;
    }

private:
    int m_number;
};

bool writeAll(int descriptor, const char* bytes, size_t count)
{
    while (count > 0) {
        const ssize_t written = ::write(descriptor, bytes, count);
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written < 0) {
            return false;
        }
        bytes += written;
        count -= static_cast<size_t>(written);
    }
    return true;
}

bool copyThroughBuffer(int source, int destination)
{
    std::vector<char> buffer(kBufferSize);
    for (;;) {
        const ssize_t count = ::read(source, buffer.data(), buffer.size());
        if (count == 0) {
            return true;
        }
        if (count < 0 && errno != EINTR) {
            return false;
        }
        if (count > 0 && !writeAll(destination, buffer.data(), static_cast<size_t>(count))) {
            return false;
        }
    }
}

/// The kernel's own copy, which shares blocks where it can; by hand from the first byte that it cannot do.
bool copyBytes(int source, int destination)
{
    constexpr size_t kChunk = size_t(1) << 30;
    for (;;) {
        const ssize_t count = ::copy_file_range(source, nullptr, destination, nullptr, kChunk, 0);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        // At the end, and for the files of some virtual file systems from the start, it gives 0.
        if (count <= 0) {
            return (count < 0 && (errno == ENOSPC || errno == EDQUOT || errno == EIO || errno == EFBIG))
                       ? false
                       : copyThroughBuffer(source, destination);
        }
    }
}

int createNew(const QString& path, mode_t mode)
{
    return ::open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
}

Failure copyFailure(const QString& source, int errorNumber)
{
    return {text("Failure.Import.Copy", QFileInfo(source).fileName(), systemReason(errorNumber))};
}

/// Takes the half-written file away and tells why.
Failure abandon(const QString& destination, int errorNumber)
{
    QFile::remove(destination);
    return {text("Failure.Import.Write", QFileInfo(destination).fileName(), systemReason(errorNumber))};
}

} // namespace

Result<void> copyFile(const QString& source, const QString& destination)
{
    Descriptor from(::open(QFile::encodeName(source).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status {};
    if (!from.isOpen() || ::fstat(from.number(), &status) != 0) {
        return copyFailure(source, errno);
    }
    if (!S_ISREG(status.st_mode)) {
        return copyFailure(source, EINVAL);
    }
    Descriptor to(createNew(destination, (status.st_mode & 0777) | S_IRUSR | S_IWUSR));
    if (!to.isOpen()) {
        return copyFailure(source, errno);
    }
    const bool copied = copyBytes(from.number(), to.number());
    const int copyError = errno;
    // A file system that keeps no times of its own is no reason to do without the copy.
    const std::array<timespec, 2> times{status.st_atim, status.st_mtim};
    static_cast<void>(::futimens(to.number(), times.data()));
    if (!to.close() || !copied) {
        const int reason = copied ? errno : copyError;
        QFile::remove(destination);
        return copyFailure(source, reason);
    }
    return {};
}

Result<void> writeFile(const QString& destination, const QByteArray& bytes)
{
    Descriptor to(createNew(destination, 0666));
    if (!to.isOpen()) {
        return Failure{text("Failure.Import.Write", QFileInfo(destination).fileName(), systemReason(errno))};
    }
    if (!writeAll(to.number(), bytes.constData(), static_cast<size_t>(bytes.size()))) {
        return abandon(destination, errno);
    }
    if (!to.close()) {
        return abandon(destination, errno);
    }
    return {};
}

QString storedFileName(const QString& name)
{
    if (!store::isSafePathComponent(name)) {
        return QStringLiteral("file");
    }
    const QString extension = QFileInfo(name).suffix();
    const QString tail = extension.isEmpty() ? QString() : u'.' + extension;
    QString stem = name.chopped(tail.size());
    const qsizetype room = kLongestFileName - kRoomForSuffix - tail.toUtf8().size();
    stem.truncate(std::max<qsizetype>(room, 0)); // A letter has at least one byte.
    while (!stem.isEmpty() && (stem.back().isHighSurrogate() || stem.toUtf8().size() > room)) {
        stem.chop(1);
    }
    return stem.isEmpty() && !name.startsWith(u'.') ? QStringLiteral("file") : stem + tail;
}

QString systemReason(int errorNumber)
{
    switch (errorNumber) {
    case ENOSPC:
    case EDQUOT:
        return text("Failure.Disk.Full");
    case EACCES:
    case EPERM:
        return text("Failure.Disk.NotAllowed");
    case EROFS:
        return text("Failure.Disk.ReadOnly");
    case ENOENT:
        return text("Failure.Disk.Gone");
    default:
        return QString::fromLocal8Bit(std::strerror(errorNumber));
    }
}

} // namespace mosaro::importing
