#include "console.h"

#include <QTextStream>
#include <QTime>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace simulated {

namespace {

constexpr int readSize = 4096;
constexpr int longestLine = 1 << 20;

int signalPipeWriteEnd = -1;

void onSignal(int)
{
    const char byte = 0;
    const int savedErrno = errno;
    const ssize_t written = ::write(signalPipeWriteEnd, &byte, 1);
    Q_UNUSED(written)
    errno = savedErrno;
}

void handle(int signal, void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    ::sigaction(signal, &action, nullptr);
}

bool mayRead()
{
    struct stat status;
    if (::fstat(STDIN_FILENO, &status) != 0)
        return false;
    return ::isatty(STDIN_FILENO) == 0 || ::tcgetpgrp(STDIN_FILENO) == ::getpgrp();
}

} // namespace

void OutputLines::print(const QString &line)
{
    // Flushed after each line, because scripts wait for lines.
    static QTextStream out(stdout);
    if (m_timestamps)
        out << QTime::currentTime().toString(QStringLiteral("HH:mm:ss.zzz "));
    out << line << '\n';
    out.flush();
}

InputLines::InputLines(QObject *parent)
    : QObject(parent)
{
    if (!mayRead())
        return;
    m_notifier = std::make_unique<QSocketNotifier>(STDIN_FILENO, QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] { readAvailable(); });
}

void InputLines::readAvailable()
{
    char buffer[readSize];
    const ssize_t size = ::read(STDIN_FILENO, buffer, sizeof buffer);
    if (size < 0 && (errno == EINTR || errno == EAGAIN))
        return;
    if (size <= 0) {
        m_notifier->setEnabled(false);
        if (!m_rest.isEmpty())
            Q_EMIT lineRead(QString::fromUtf8(m_rest));
        m_rest.clear();
        if (size == 0 && ::isatty(STDIN_FILENO) != 0)
            Q_EMIT closedByHand();
        return;
    }
    m_rest.append(buffer, int(size));
    int end = 0;
    while ((end = m_rest.indexOf('\n')) >= 0) {
        const QString line = QString::fromUtf8(m_rest.left(end));
        m_rest.remove(0, end + 1);
        Q_EMIT lineRead(line);
    }
    if (m_rest.size() > longestLine)
        m_rest.clear();
}

EndSignals::EndSignals(QObject *parent)
    : QObject(parent)
{
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    m_readEnd = ends[0];
    signalPipeWriteEnd = ends[1];
    m_notifier = std::make_unique<QSocketNotifier>(m_readEnd, QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] {
        char byte = 0;
        if (::read(m_readEnd, &byte, 1) == 1)
            Q_EMIT received();
    });
    handle(SIGINT, onSignal);
    handle(SIGTERM, onSignal);
    // If the output pipe is closed, the program must still run to its end.
    handle(SIGPIPE, SIG_IGN);
}

EndSignals::~EndSignals()
{
    handle(SIGINT, SIG_DFL);
    handle(SIGTERM, SIG_DFL);
    if (m_readEnd >= 0) {
        ::close(m_readEnd);
        ::close(signalPipeWriteEnd);
    }
}

} // namespace simulated
