#pragma once

#include <SQLiteCpp/Database.h>

namespace mosaro::store {

/// Registers with the connection: the collation FINDER (natural order of names), and the functions
/// mosaro_fold(text, fold), mosaro_contains, mosaro_begins, mosaro_ends and mosaro_like(text, folded part or
/// pattern, fold).
void registerTextFunctions(SQLite::Database& database);

} // namespace mosaro::store
