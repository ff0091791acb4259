#pragma once

#include "base/Ports.h"

namespace mosaro::organisation {

/// For work whose progress nobody looks at.
class NoPanel : public base::ProgressSink {
public:
    void begin(const QString&) override {}
    void update(const QString&, int) override {}
    void end() override {}
};

} // namespace mosaro::organisation
