#pragma once

#include "store/Query.h"

#include <SQLiteCpp/Database.h>
#include <string>
#include <string_view>

namespace mosaro::store {

/// Registers with the connection: the collation FINDER (natural order of names), and the functions
/// mosaro_fold(text, fold), mosaro_contains, mosaro_begins and mosaro_ends(text, folded part, fold).
void registerTextFunctions(SQLite::Database& database);

/// The text as comparisons of that fold see it. UTF-8 in and out; broken sequences become replacement
/// characters.
[[nodiscard]] std::string foldedText(std::string_view text, Fold fold);

} // namespace mosaro::store
