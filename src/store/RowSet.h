#pragma once

#include "store/Record.h"

#include <algorithm>
#include <vector>

namespace mosaro::store {

/// A set of row ids, one bit each.
class RowSet {
public:
    /// False when it was in already.
    bool insert(RowId id)
    {
        if (id <= 0)
            return false;
        const auto position = static_cast<size_t>(id);
        if (position >= m_bits.size())
            m_bits.resize(std::max(position + 1, m_bits.size() * 2));
        if (m_bits[position])
            return false;
        m_bits[position] = true;
        ++m_count;
        return true;
    }

    [[nodiscard]] bool contains(RowId id) const
    {
        return id > 0 && static_cast<size_t>(id) < m_bits.size() && m_bits[static_cast<size_t>(id)];
    }

    [[nodiscard]] std::vector<RowId> ascending() const
    {
        std::vector<RowId> ids;
        ids.reserve(m_count);
        for (size_t position = 0; position < m_bits.size(); ++position) {
            if (m_bits[position])
                ids.push_back(static_cast<RowId>(position));
        }
        return ids;
    }

private:
    std::vector<bool> m_bits;
    size_t m_count = 0;
};

} // namespace mosaro::store
