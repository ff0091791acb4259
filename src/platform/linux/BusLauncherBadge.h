#pragma once

#include "platform/Ports.h"

#include <QVariantMap>

namespace mosaro::platform {

/// A progress bar and a number on the launcher's icon, broadcast over the session bus.
class BusLauncherBadge : public LauncherBadge {
public:
    void setPercent(int percent) override;
    void clear() override;

private:
    std::optional<int> m_shown;
};

} // namespace mosaro::platform
