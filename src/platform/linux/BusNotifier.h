#pragma once

#include "platform/Ports.h"

#include <QObject>

namespace mosaro::platform {

/// The desktop's notification service. A desktop without one stays silent.
class BusNotifier : public QObject, public base::UserNotifier {
    Q_OBJECT

public:
    void notify(const QString& title, const QString& subtitle, const QString& content) override;

private:
    static void send(const QString& title, const QString& body);
};

} // namespace mosaro::platform
