#pragma once

#include <QHash>
#include <QLatin1String>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QVariant>
#include <functional>
#include <vector>

namespace mosaro::base {

/// Named events within the process. A post runs every observer at once, in the order in which they were
/// added, with the value as the only payload. Main thread only. Observers added or removed during a post take
/// effect at the next.
class NotificationBus {
public:
    using Handler = std::function<void(const QVariant& value)>;

    /// Runs `handler` for `name` as long as `observer` lives.
    void observe(QLatin1String name, QObject* observer, Handler handler);
    /// Takes all of an observer's handlers off.
    void removeObserver(const QObject* observer);
    void post(QLatin1String name, const QVariant& value = {});

private:
    struct Entry {
        QPointer<QObject> observer;
        Handler handler;
    };
    QHash<QString, std::vector<Entry>> m_entries;
};

} // namespace mosaro::base
