#pragma once

#include "platform/Ports.h"

namespace mosaro::platform {

class LinkResolver : public AliasResolver {
public:
    [[nodiscard]] QString resolve(const QString& path) const override;
};

} // namespace mosaro::platform
