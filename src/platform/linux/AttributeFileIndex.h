#pragma once

#include "platform/Ports.h"

namespace mosaro::platform {

/// What file managers keep in a file's extended attributes. A file system without them has no entries.
class AttributeFileIndex : public FileIndex {
public:
    [[nodiscard]] FileIndexEntry read(const QString& path) const override;
    bool writeLabelNumber(const QString& path, int labelNumber) override;
};

} // namespace mosaro::platform
