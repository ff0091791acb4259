#pragma once

#include "base/Result.h"

#include <QString>
#include <SQLiteCpp/Database.h>
#include <functional>
#include <span>
#include <vector>

namespace mosaro::store {

/// One step of the schema, to its number. What a step did once it stays: a change of the schema is a new
/// step.
struct Migration {
    int number;
    std::function<void(SQLite::Database&)> run;
};

/// All steps in order; the last one's number is the schema of this program.
[[nodiscard]] const std::vector<Migration>& currentMigrations();

/// Whether the file is a store that this program may open, by reading it only.
[[nodiscard]] base::Result<void> checkSchema(SQLite::Database& database, const QString& path);

/// Runs the steps that the file lacks, each in one transaction. A failed one leaves the file as it found it.
[[nodiscard]] base::Result<void> migrate(SQLite::Database& database, const QString& path,
                                         std::span<const Migration> steps);

} // namespace mosaro::store
