#include "import/ColorEngine.h"

#include "import/ImageOperations.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace mosaro::importing {

namespace {

struct Parameters {
    int side;
    int spread;
    float mergeDistance;
};

Parameters parametersOf(int detail)
{
    switch (detail) {
    case 0:
        return {4, 1, 100};
    case 2:
        return {100, 10, 20};
    default:
        return {10, 2, 60};
    }
}

using Channels = std::array<int, 3>;

struct Vote {
    Channels color;
    int count;
};

/// Counts colours in order of first appearance: open addressing over the packed channels (nine bits each).
class Ballot {
public:
    void add(const Channels& color)
    {
        if (m_votes.size() * 2 >= m_slots.size())
            grow();
        const std::uint32_t key = pack(color);
        int& slot = slotOf(key);
        if (slot < 0) {
            slot = static_cast<int>(m_votes.size());
            m_votes.push_back({color, 0});
        }
        ++m_votes[static_cast<std::size_t>(slot)].count;
    }

    [[nodiscard]] std::vector<Vote> take() { return std::move(m_votes); }

private:
    static std::uint32_t pack(const Channels& color)
    {
        return static_cast<std::uint32_t>(color[0] << 18 | color[1] << 9 | color[2]);
    }

    int& slotOf(std::uint32_t key)
    {
        std::size_t slot = std::uint32_t(key * 2654435761U) & (m_slots.size() - 1);
        while (m_slots[slot] >= 0 && pack(m_votes[static_cast<std::size_t>(m_slots[slot])].color) != key)
            slot = (slot + 1) & (m_slots.size() - 1);
        return m_slots[slot];
    }

    void grow()
    {
        m_slots.assign(m_slots.size() * 4, -1);
        for (std::size_t vote = 0; vote < m_votes.size(); ++vote)
            slotOf(pack(m_votes[vote].color)) = static_cast<int>(vote);
    }

    std::vector<int> m_slots = std::vector<int>(16384, -1);
    std::vector<Vote> m_votes;
};

// A cell votes for 3c² of the c³ combinations around it, with red slowest, so the votes lean to lower reds;
// and what would fall below 0 counts as 0 again and again, so dark channels weigh more. Both are the method.
void castVotes(Ballot& ballot, const uchar* cell, int spread)
{
    const int choices = 2 * spread + 1;
    const auto value = [cell, spread](int channel, int index) {
        return std::max(0, cell[channel] + index - spread);
    };
    for (int combination = 0; combination < 3 * choices * choices; ++combination) {
        const int red = combination / (choices * choices);
        const int green = combination / choices % choices;
        const int blue = combination % choices;
        ballot.add({value(0, red), value(1, green), value(2, blue)});
    }
}

bool closeTo(const Channels& color, const Channels& kept, float distance)
{
    for (std::size_t channel = 0; channel < 3; ++channel) {
        const auto value = static_cast<float>(color[channel]);
        const auto centre = static_cast<float>(kept[channel]);
        if (value < centre - distance || value > centre + distance)
            return false;
    }
    return true;
}

std::vector<Vote> merged(std::vector<Vote> votes, float distance)
{
    std::stable_sort(votes.begin(), votes.end(),
                     [](const Vote& a, const Vote& b) { return a.count > b.count; });
    std::vector<Vote> kept;
    for (const Vote& vote : votes) {
        const bool shadowed = std::any_of(kept.begin(), kept.end(), [&](const Vote& other) {
            return closeTo(vote.color, other.color, distance);
        });
        if (!shadowed)
            kept.push_back(vote);
    }
    return kept;
}

DominantColor dominantColor(const Vote& vote, qint64 total)
{
    const auto component = [](int value) { return static_cast<float>(value / 255.0); };
    DominantColor result;
    result.color = {component(vote.color[0]), component(vote.color[1]), component(vote.color[2]), 1.0F};
    result.percent = static_cast<float>(vote.count) / static_cast<float>(total);
    return result;
}

} // namespace

std::vector<DominantColor> ZNColorEngine::colorsInImage(const QImage& image, int withDetail)
{
    const Parameters parameters = parametersOf(withDetail);
    const QImage cells = sampledToGrid(image, parameters.side);
    if (cells.isNull())
        return {};
    Ballot ballot;
    for (int y = 0; y < parameters.side; ++y) {
        for (int x = 0; x < parameters.side; ++x)
            castVotes(ballot, cells.constScanLine(y) + qsizetype(x) * 4, parameters.spread);
    }
    const std::vector<Vote> kept = merged(ballot.take(), parameters.mergeDistance);
    qint64 total = 0;
    for (const Vote& vote : kept)
        total += vote.count;

    std::vector<DominantColor> colors;
    for (const Vote& vote : kept) {
        const DominantColor color = dominantColor(vote, total);
        // A near-total colour is a plain backdrop and drops out; the only colour there is stays.
        if (color.percent < 0.94F || color.percent >= 1.0F)
            colors.push_back(color);
    }
    return colors;
}

ZNColorEngine::ZNColorEngine(const QImage& image, int detail) : m_colors(colorsInImage(image, detail))
{
    std::stable_sort(m_colors.begin(), m_colors.end(),
                     [](const DominantColor& a, const DominantColor& b) { return a.percent > b.percent; });
}

} // namespace mosaro::importing
