#pragma once

#include "store/StoreContext.h"

#include <QByteArray>

namespace mosaro::store {

/// A reference to a saved record as bytes: a binary property list with the one key "URIRepresentation", whose
/// text is "x-mosaro://<store>/<entity>/p<row>". Empty for an unsaved record.
[[nodiscard]] QByteArray archivedReference(const Record& record);

/// The record itself; null for other bytes, another library, another entity or a row that is gone.
template <class T>
[[nodiscard]] std::shared_ptr<T> unarchivedReference(StoreContext& context, const QByteArray& bytes);

/// The row behind a reference to `entity` of this store, or kUnsavedRow.
[[nodiscard]] RowId referencedRow(const StoreContext& context, const EntityInfo& entity,
                                  const QByteArray& bytes);

template <class T>
std::shared_ptr<T> unarchivedReference(StoreContext& context, const QByteArray& bytes)
{
    const RowId row = referencedRow(context, T::info(), bytes);
    return row == kUnsavedRow ? nullptr : context.object<T>(row);
}

} // namespace mosaro::store
