#pragma once

#include <QObject>
#include <memory>

class QSocketNotifier;

namespace mosaro::platform {

/// Turns the first interrupt, termination or hang-up signal of the process into an event of its own; a second
/// one ends the process in the usual way. At most one object at a time.
class Interrupts : public QObject {
    Q_OBJECT

public:
    explicit Interrupts(QObject* parent = nullptr);
    ~Interrupts() override;

Q_SIGNALS:
    void interrupted();

private:
    int m_descriptor = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace mosaro::platform
