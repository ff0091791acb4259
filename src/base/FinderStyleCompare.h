#pragma once

#include <QString>
#include <algorithm>

namespace mosaro::base {

/// Natural order of names: numbers by value, case and width folded, diacritics and punctuation significant.
/// An ICU collation (UTS #10, root locale) with numeric ordering. Negative, 0 or positive.
[[nodiscard]] int finderStyleCompare(QStringView left, QStringView right);

/// The same over UTF-8 bytes, for SQLite's collation callback.
[[nodiscard]] int finderStyleCompareUtf8(const char* left, int leftSize, const char* right, int rightSize);

/// Sorts ascending by finderStyleCompare on what `key` gives; equal ones keep their order.
template <class Container, class Key>
void sortedArray(Container& items, Key key)
{
    std::stable_sort(items.begin(), items.end(),
                     [&key](const auto& a, const auto& b) { return finderStyleCompare(key(a), key(b)) < 0; });
}

} // namespace mosaro::base
