#pragma once

#include <QSemaphore>
#include <algorithm>

namespace mosaro::base {

/// A bounded amount of memory that threads share. Who needs a lot of it waits until others have given back.
class MemoryBudget {
public:
    explicit MemoryBudget(qint64 bytes) : m_total(blocks(bytes)), m_free(m_total) {}

    /// Waits until so much is free, and holds it as long as the result lives. What is more than the whole
    /// budget waits until it is alone. A thread that holds one share must not ask for a second.
    [[nodiscard]] QSemaphoreReleaser take(qint64 bytes)
    {
        const int count = std::min(blocks(bytes), m_total);
        m_free.acquire(count);
        return QSemaphoreReleaser(m_free, count);
    }

private:
    static constexpr qint64 kBlock = qint64(1) << 20;
    static int blocks(qint64 bytes) { return static_cast<int>((bytes + kBlock - 1) / kBlock); }

    int m_total;
    QSemaphore m_free;
};

} // namespace mosaro::base
