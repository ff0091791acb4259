#pragma once

#include "platform/Ports.h"

#include <QMimeDatabase>

namespace mosaro::platform {

class MimeTypes : public TypeDatabase {
public:
    [[nodiscard]] QString mimeTypeForExtension(const QString& extension) const override;
    [[nodiscard]] bool inherits(const QString& mime, const QString& ancestor) const override;

private:
    QMimeDatabase m_database;
};

} // namespace mosaro::platform
