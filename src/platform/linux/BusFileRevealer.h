#pragma once

#include "platform/Ports.h"

#include <QObject>

namespace mosaro::platform {

/// Asks the file manager over the session bus; where none answers, opens the file's folder.
class BusFileRevealer : public QObject, public FileRevealer {
    Q_OBJECT

public:
    void reveal(const QString& path) override;
};

} // namespace mosaro::platform
