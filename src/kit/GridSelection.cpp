#include "kit/GridSelection.h"

#include <algorithm>
#include <limits>

namespace mosaro::kit {

namespace {

/// The first interval that ends at or after `index`.
template <class Intervals>
auto firstReaching(Intervals& intervals, int index)
{
    return std::lower_bound(intervals.begin(), intervals.end(), index,
                            [](const GridInterval& interval, int value) { return interval.last < value; });
}

} // namespace

int GridSelection::count() const
{
    int total = 0;
    for (const GridInterval& interval : m_intervals) {
        total += interval.count();
    }
    return total;
}

bool GridSelection::contains(int index) const
{
    const auto found = firstReaching(m_intervals, index);
    return found != m_intervals.end() && found->first <= index;
}

void GridSelection::add(GridInterval interval)
{
    if (interval.isEmpty()) {
        return;
    }
    // Neighbours that only touch are joined too.
    const auto begin = firstReaching(m_intervals, interval.first - 1);
    auto end = begin;
    while (end != m_intervals.end() && end->first <= interval.last + 1) {
        interval.first = std::min(interval.first, end->first);
        interval.last = std::max(interval.last, end->last);
        ++end;
    }
    m_intervals.insert(m_intervals.erase(begin, end), interval);
}

void GridSelection::remove(GridInterval interval)
{
    if (interval.isEmpty()) {
        return;
    }
    const auto begin = firstReaching(m_intervals, interval.first);
    auto end = begin;
    std::vector<GridInterval> rest;
    while (end != m_intervals.end() && end->first <= interval.last) {
        const GridInterval before{end->first, interval.first - 1};
        const GridInterval after{interval.last + 1, end->last};
        for (const GridInterval& part : {before, after}) {
            if (!part.isEmpty()) {
                rest.push_back(part);
            }
        }
        ++end;
    }
    m_intervals.insert(m_intervals.erase(begin, end), rest.begin(), rest.end());
}

void GridSelection::add(const GridSelection& other)
{
    for (const GridInterval& interval : other.m_intervals) {
        add(interval);
    }
}

void GridSelection::toggle(const GridSelection& other)
{
    const GridSelection before = *this;
    add(other);
    for (const GridInterval& mine : before.m_intervals) {
        for (const GridInterval& theirs : other.m_intervals) {
            remove({std::max(mine.first, theirs.first), std::min(mine.last, theirs.last)});
        }
    }
}

void GridSelection::clip(int count)
{
    remove({count, std::numeric_limits<int>::max() - 1});
}

} // namespace mosaro::kit
