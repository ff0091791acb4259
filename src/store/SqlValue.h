#pragma once

#include "store/Schema.h"

#include <QVariant>
#include <SQLiteCpp/Statement.h>

namespace mosaro::store {

/// An attribute's value as a column keeps it, and back. An invalid QVariant is NULL.
void bindValue(SQLite::Statement& statement, int position, ValueType type, const QVariant& value);
[[nodiscard]] QVariant columnValue(SQLite::Statement& statement, int column, ValueType type);

/// UTF-8 with everything in it, NUL included.
void bindText(SQLite::Statement& statement, int position, const QString& text);

} // namespace mosaro::store
