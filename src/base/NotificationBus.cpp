#include "base/NotificationBus.h"

#include "base/Threads.h"

#include <QCoreApplication>

namespace mosaro::base {

void NotificationBus::observe(QLatin1String name, QObject* observer, Handler handler)
{
    Q_ASSERT(observer != nullptr && handler);
    auto& entries = m_entries[name];
    std::erase_if(entries, [](const Entry& entry) { return entry.observer.isNull(); });
    entries.push_back({observer, std::move(handler)});
}

void NotificationBus::removeObserver(const QObject* observer)
{
    for (auto& entries : m_entries)
        std::erase_if(entries, [observer](const Entry& entry) { return entry.observer == observer; });
}

void NotificationBus::post(QLatin1String name, const QVariant& value)
{
    Q_ASSERT(QCoreApplication::instance() == nullptr || onMainThread());
    // A copy, since handlers may add and remove observers, or post in their turn.
    const std::vector<Entry> entries = m_entries.value(name);
    for (const Entry& entry : entries) {
        if (!entry.observer.isNull())
            entry.handler(value);
    }
}

} // namespace mosaro::base
