#include "browser/CountLine.h"

#include "base/Text.h"
#include "base/ZNFileManager.h"

#include <QLocale>

namespace mosaro::browser {

QString countLine(qint64 selected, qint64 total, qint64 totalFileSize)
{
    if (total <= 0) {
        return {};
    }
    const QLocale locale;
    const QString count = locale.toString(total);
    if (selected > 0) {
        return base::text("Basic.Selected.Item", locale.toString(selected), count);
    }
    const QString size = base::ZNFileManager().fileSizeAsString(totalFileSize);
    return total < 2 ? base::text("Basic.Item", count, size) : base::text("Basic.Items", count, size);
}

} // namespace mosaro::browser
