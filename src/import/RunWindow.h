#pragma once

#include "import/ImportStaging.h"

#include <map>
#include <memory>
#include <optional>

namespace mosaro::importing {

/// The stretch of the list that is being worked on: hands out what to analyse next, keeps results that come
/// out of turn, and gives them back in list order. Never more than `ahead` items beyond the one that is
/// committed next.
class RunWindow {
public:
    RunWindow() = default;
    RunWindow(int total, int ahead) : m_total(total), m_ahead(ahead) {}

    /// The next item to analyse; nothing while the window is full, and after the last.
    [[nodiscard]] std::optional<int> takeStart();
    void arrived(int index, std::shared_ptr<StagedItem> staged);
    [[nodiscard]] bool hasNext() const { return m_ready.contains(m_next); }
    /// Whether the item that is committed next is passed over. Only when hasNext().
    [[nodiscard]] bool nextIsGone() const { return m_ready.at(m_next)->isGone; }
    /// The result that is committed next. Only when hasNext().
    [[nodiscard]] std::shared_ptr<StagedItem> takeNext();
    /// Position in the list of what is committed next.
    [[nodiscard]] int next() const { return m_next; }
    [[nodiscard]] int total() const { return m_total; }
    [[nodiscard]] bool isFinished() const { return m_next >= m_total; }
    /// Items that workers hold.
    [[nodiscard]] int inFlight() const { return m_inFlight; }
    /// Ends the walk here; whatever arrives from now on is thrown away.
    void close();

private:
    int m_total = 0;
    int m_ahead = 0;
    int m_started = 0;
    int m_next = 0;
    int m_inFlight = 0;
    bool m_closed = false;
    std::map<int, std::shared_ptr<StagedItem>> m_ready;
};

} // namespace mosaro::importing
