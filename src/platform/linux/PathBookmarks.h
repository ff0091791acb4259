#pragma once

#include "platform/Ports.h"

namespace mosaro::platform {

/// The desktop does not confine the program, so a path is its own token.
class PathBookmarks : public Bookmarks {
public:
    [[nodiscard]] QByteArray bookmarkData(const QString& path) const override;
    [[nodiscard]] QString resolve(const QByteArray& bookmark) const override;
};

} // namespace mosaro::platform
