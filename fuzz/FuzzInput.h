#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QSize>
#include <QString>
#include <QTemporaryDir>
#include <stdexcept>
#include <vector>

namespace mosaro::fuzz {

/// One parser that is given any bytes. Each file in targets/ makes one of these, named as the file and as the
/// folder of its corpus; a fuzzing program holds one of them, the test of the corpora all.
struct Target {
    Target(const char* itsName, void (*itsRun)(const QByteArray& bytes));

    const char* name;
    void (*run)(const QByteArray& bytes);
};

inline std::vector<const Target*>& targets()
{
    static std::vector<const Target*> all;
    return all;
}

inline Target::Target(const char* itsName, void (*itsRun)(const QByteArray& bytes))
    : name(itsName), run(itsRun)
{
    targets().push_back(this);
}

/// What a parser promises for any input. A broken promise is a finding like a crash: nobody catches it in a
/// fuzzing program.
inline void require(bool holds, const char* promise)
{
    if (!holds)
        throw std::logic_error(promise);
}

/// Larger pictures take time and show nothing new.
inline bool isLarge(QSize size)
{
    constexpr qint64 kMostPixels = qint64(1) << 20;
    return qint64(size.width()) * size.height() > kMostPixels;
}

/// For parsers that read a device.
class InputDevice : public QBuffer {
public:
    explicit InputDevice(const QByteArray& bytes)
    {
        setData(bytes);
        open(QIODevice::ReadOnly);
    }
};

/// For parsers that want a file: always the same one, written anew. The folder goes with the program.
inline QString inputFile(const QByteArray& bytes, const QString& name = QStringLiteral("input"))
{
    static const QTemporaryDir folder;
    const QString path = folder.filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qUtf8Printable(path));
    return path;
}

/// For parsers of several values: the first line, and what comes after it.
struct TwoParts {
    explicit TwoParts(const QByteArray& bytes)
    {
        const qsizetype end = bytes.indexOf('\n');
        first = bytes.left(end);
        rest = end < 0 ? QByteArray() : bytes.mid(end + 1);
    }

    QByteArray first;
    QByteArray rest;
};

} // namespace mosaro::fuzz
