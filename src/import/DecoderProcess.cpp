#include "import/DecoderProcess.h"

#include "base/Text.h"
#include "import/BitmapDecoder.h"
#include "import/decoders/DecoderProtocol.h"

#include <QDeadlineTimer>
#include <algorithm>
#include <array>
#include <cerrno>
#include <limits>
#include <poll.h>
#include <sys/socket.h>

namespace mosaro::importing {

namespace {

constexpr int kMostDocuments = 500;

enum class End { Done, Gone, TooLate, TooMuch };

/// Until the socket is ready for it. That it was closed at the other end shows when it is used.
End waitFor(int socket, short events, const QDeadlineTimer& deadline)
{
    for (;;) {
        pollfd waiting{socket, events, 0};
        const qint64 left = std::min<qint64>(deadline.remainingTime(), std::numeric_limits<int>::max());
        const int ready = ::poll(&waiting, 1, static_cast<int>(left));
        if (ready > 0)
            return End::Done;
        if (ready == 0)
            return End::TooLate;
        if (errno != EINTR)
            return End::Gone;
    }
}

/// Moves all of the bytes, in as many pieces as it takes. `move` sends or receives a piece without waiting.
template <class Byte, class Move>
End moveAll(int socket, short events, Byte* bytes, std::size_t count, const QDeadlineTimer& deadline,
            Move&& move)
{
    while (count > 0) {
        const ssize_t moved = move(socket, bytes, count, MSG_DONTWAIT | MSG_NOSIGNAL);
        if (moved > 0) {
            bytes += moved;
            count -= static_cast<std::size_t>(moved);
        } else if (moved < 0 && (errno == EAGAIN || errno == EINTR)) {
            if (const End end = waitFor(socket, events, deadline); end != End::Done)
                return end;
        } else {
            return End::Gone;
        }
    }
    return End::Done;
}

End send(int socket, const void* bytes, std::size_t count, const QDeadlineTimer& deadline)
{
    return moveAll(socket, POLLOUT, static_cast<const char*>(bytes), count, deadline, ::send);
}

End receive(int socket, void* bytes, std::size_t count, const QDeadlineTimer& deadline)
{
    return moveAll(socket, POLLIN, static_cast<char*>(bytes), count, deadline, ::recv);
}

/// `picture` has the size that is asked for; its pixels count only when the outcome is that it is drawn.
End exchange(int socket, const QByteArray& document, QImage& picture, DecoderOutcome& outcome,
             const QDeadlineTimer& deadline)
{
    const DecoderRequest request{static_cast<std::uint32_t>(picture.width()),
                                 static_cast<std::uint32_t>(picture.height()),
                                 static_cast<std::uint32_t>(document.size())};
    DecoderAnswer answer{};
    End end = send(socket, &request, sizeof request, deadline);
    if (end == End::Done)
        end = send(socket, document.constData(), request.documentBytes, deadline);
    if (end == End::Done)
        end = receive(socket, &answer, sizeof answer, deadline);
    if (end != End::Done)
        return end;
    outcome = answer.outcome;
    const qsizetype expected = outcome == DecoderOutcome::Drawn ? picture.sizeInBytes() : 0;
    if (answer.pictureBytes != expected)
        return End::TooMuch;
    return receive(socket, picture.bits(), answer.pictureBytes, deadline);
}

} // namespace

DecoderProcess::DecoderProcess(QString program, QStringList arguments)
    : m_program(std::move(program)), m_arguments(std::move(arguments))
{
}

DecoderProcess::~DecoderProcess()
{
    end();
}

base::Result<QImage> DecoderProcess::draw(const QByteArray& document, QSize size, const ChildLimits& limits)
{
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    if (picture.isNull())
        return tooLargePicture(size);
    if (m_documents >= kMostDocuments || !isReady())
        end();
    if (m_child < 0 && !start(limits))
        return childNotStarted(m_program);
    ++m_documents;
    DecoderOutcome outcome{};
    const End how =
        exchange(m_socket.get(), document, picture, outcome, QDeadlineTimer(limits.seconds * qint64(1000)));
    if (how != End::Done)
        end();
    if (how == End::TooLate)
        return base::Failure{base::text("Failure.Image.TooSlow")};
    if (how == End::Gone)
        return childDied(m_program);
    if (how == End::TooMuch || outcome == DecoderOutcome::TooMuch)
        return base::Failure{base::text("Failure.Child.Output")};
    if (outcome != DecoderOutcome::Drawn)
        return damagedPicture();
    return picture;
}

/// Running, and silent. One that has ended meanwhile, or that speaks unasked, gets no document.
bool DecoderProcess::isReady() const
{
    return m_child >= 0 && waitFor(m_socket.get(), POLLIN, QDeadlineTimer(0)) == End::TooLate;
}

bool DecoderProcess::start(ChildLimits limits)
{
    std::array<int, 2> ends = {-1, -1};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0)
        return false;
    m_socket.reset(ends[0]);
    const Descriptor childsEnd(ends[1]);
    limits.seconds *= kMostDocuments;
    m_child = spawnChild({m_program, m_arguments, limits, "/", childsEnd.get(), childsEnd.get()});
    return m_child >= 0;
}

void DecoderProcess::end()
{
    m_socket.reset(-1);
    if (m_child >= 0)
        endAndReap(m_child);
    m_child = -1;
    m_documents = 0;
}

} // namespace mosaro::importing
