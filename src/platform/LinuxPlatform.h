#pragma once

#include "platform/Ports.h"

#include <QObject>
#include <functional>

namespace mosaro::platform {

/// The real services. With `desktop` false (no session: mosaroctl, tests) notifications, sounds, badge and
/// reveal are null pointers; the others are always there.
[[nodiscard]] Platform makeLinuxPlatform(bool desktop);

/// The user's full name, else the login name.
[[nodiscard]] QString userFullName();

/// XDG data directory of the user, where the support folder "Mosaro" lies.
[[nodiscard]] QString applicationSupportFolder();

/// One instance per user session, by a D-Bus name. Without a session bus every start is the first.
class SingleInstance : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mosaro.Mosaro")

public:
    explicit SingleInstance(QObject* parent = nullptr);

    /// True when this process is the first. When false the first has been asked to raise itself.
    [[nodiscard]] bool claim();

    /// Called over the bus by a second start.
    Q_INVOKABLE void Raise() { Q_EMIT raiseRequested(); }

Q_SIGNALS:
    void raiseRequested();
};

} // namespace mosaro::platform
