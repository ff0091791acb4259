#pragma once

#include <vector>

namespace mosaro::kit {

/// Indexes from first to last, both included.
struct GridInterval {
    int first = 0;
    int last = -1;

    [[nodiscard]] bool isEmpty() const { return last < first; }
    [[nodiscard]] int count() const { return isEmpty() ? 0 : last - first + 1; }
    bool operator==(const GridInterval&) const = default;
};

/// A set of indexes, kept as sorted intervals that neither overlap nor touch: all of a million items is one
/// of them.
class GridSelection {
public:
    GridSelection() = default;
    explicit GridSelection(GridInterval interval) { add(interval); }

    [[nodiscard]] bool isEmpty() const { return m_intervals.empty(); }
    [[nodiscard]] int count() const;
    [[nodiscard]] bool contains(int index) const;
    /// -1 when empty.
    [[nodiscard]] int first() const { return isEmpty() ? -1 : m_intervals.front().first; }
    [[nodiscard]] int last() const { return isEmpty() ? -1 : m_intervals.back().last; }
    [[nodiscard]] const std::vector<GridInterval>& intervals() const { return m_intervals; }

    void clear() { m_intervals.clear(); }
    void add(GridInterval interval);
    void remove(GridInterval interval);
    void add(const GridSelection& other);
    /// Takes in what was out and out what was in, for each index of `other`.
    void toggle(const GridSelection& other);
    /// Drops indexes at and above `count`.
    void clip(int count);

    /// Calls `visit(index)` for each index, ascending.
    template <class Visit>
    void forEach(Visit visit) const
    {
        for (const GridInterval& interval : m_intervals) {
            for (int index = interval.first; index <= interval.last; ++index) {
                visit(index);
            }
        }
    }

    bool operator==(const GridSelection&) const = default;

private:
    std::vector<GridInterval> m_intervals;
};

} // namespace mosaro::kit
