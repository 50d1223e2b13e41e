#include "quitonsignal.h"

#include <QCoreApplication>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

int pipeEnds[2] = {-1, -1};

// write() is allowed in a signal handler.
void handle(int)
{
    const char byte = 1;
    const ssize_t written = write(pipeEnds[1], &byte, 1);
    static_cast<void>(written);
}

void react(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

} // namespace

QuitOnSignal::QuitOnSignal()
{
    if (pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    m_notifier = std::make_unique<QSocketNotifier>(pipeEnds[0], QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, qApp, [] { QCoreApplication::quit(); });
    react(handle);
}

QuitOnSignal::~QuitOnSignal()
{
    react(SIG_DFL);
    m_notifier.reset();
    for (int &end : pipeEnds) {
        if (end >= 0)
            close(end);
        end = -1;
    }
}
