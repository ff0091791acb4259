#pragma once

#include "base/Result.h"

#include <QtGlobal>

namespace mosaro::browser {

/// A save that fails never stops a command of the browser: what it wrote stays pending, and the log says why.
inline void showDatabaseError(const base::Result<void>& outcome)
{
    if (!outcome) {
        qWarning("database error: %s", qUtf8Printable(outcome.reason()));
    }
}

} // namespace mosaro::browser
