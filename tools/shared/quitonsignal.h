#pragma once

#include <QSocketNotifier>
#include <memory>

/// Ends the event loop on SIGINT or SIGTERM, so that the program shuts down in order. Only one object may
/// exist at a time, created after the application object.
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
