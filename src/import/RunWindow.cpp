#include "import/RunWindow.h"

namespace mosaro::importing {

std::optional<int> RunWindow::takeStart()
{
    if (m_closed || m_started >= m_total || m_started >= m_next + m_ahead) {
        return std::nullopt;
    }
    ++m_inFlight;
    return m_started++;
}

void RunWindow::arrived(int index, std::shared_ptr<StagedItem> staged)
{
    --m_inFlight;
    if (m_closed) {
        staged.reset();
    } else {
        m_ready.emplace(index, std::move(staged));
    }
}

std::shared_ptr<StagedItem> RunWindow::takeNext()
{
    auto staged = std::move(m_ready.extract(m_next).mapped());
    ++m_next;
    return staged;
}

void RunWindow::close()
{
    m_closed = true;
    m_ready.clear();
}

} // namespace mosaro::importing
