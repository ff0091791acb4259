#pragma once

#include <QString>
#include <QtGlobal>

namespace mosaro::organisation {

/// A change of the collections that could not be saved ends its command; the log says why. An empty reason:
/// nobody gave one.
inline void showDatabaseError(const QString& reason)
{
    if (reason.isEmpty()) {
        qWarning("database error occurred in Collection");
    } else {
        qWarning("database error: %ls", qUtf16Printable(reason));
    }
}

} // namespace mosaro::organisation
