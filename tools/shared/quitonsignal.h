#pragma once

#include <QSocketNotifier>
#include <memory>

/// Ends the event loop when SIGINT or SIGTERM arrives, so that everything is torn down in its order.
/// One object at a time, made after the application object.
class QuitOnSignal
{
public:
    QuitOnSignal();
    ~QuitOnSignal();
    QuitOnSignal(const QuitOnSignal &) = delete;
    QuitOnSignal &operator=(const QuitOnSignal &) = delete;

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
};
