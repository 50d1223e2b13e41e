#include "session.h"

#include "control/qconnectqmlplugin.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTest>

namespace {

constexpr quint16 hihatQuery = 0x484C;
constexpr quint16 settledValue = 54321;

// The address that this program was built for; sessions add a port.
QString engineAddress()
{
    static const QString address =
        qEnvironmentVariable("ZELTACONNECT_ENGINE").section(QLatin1Char(':'), 0, 0);
    return address;
}

bool isProgress(const QByteArray &name)
{
    return name == "soundProgressChanged" || name == "triggerProgressChanged" ||
           name == "btfwProgressChanged" || name == "waveTransferProgress";
}

} // namespace

Session::Session(Recording recording)
    : m_peer(engineAddress())
{
    qputenv("ZELTACONNECT_ENGINE", m_peer.endpoint().toLatin1());
    m_plugin = std::make_unique<QConnectQmlPlugin>();
    if (recording == RecordSignals)
        m_recorder = std::make_unique<testsupport::SignalRecorder>(m_plugin.get());
}

Session::~Session() = default;

QStringList Session::seen() const
{
    const QList<testsupport::RecordedSignal> recorded = m_recorder->recorded();
    const QStringList texts = m_recorder->texts();
    QStringList result;
    for (int i = 0; i < recorded.size() && i < texts.size(); ++i) {
        const QByteArray &name = recorded.at(i).name;
        if (name == "udpPacketArrived")
            continue;
        if (!isProgress(name)) {
            result.append(texts.at(i));
            continue;
        }
        int run = 1;
        while (i + 1 < recorded.size() && recorded.at(i + 1).name == name) {
            ++run;
            ++i;
        }
        result.append(QStringLiteral("%1 x%2").arg(QString::fromLatin1(name)).arg(run));
    }
    return result;
}

void Session::forgetSeen()
{
    m_recorder->clear();
}

bool Session::waitFor(const QString &signal, int timeoutMs) const
{
    return QTest::qWaitFor([&] { return m_recorder->texts().contains(signal); }, timeoutMs);
}

bool Session::settle(int timeoutMs)
{
    m_peer.answerQuery(hihatQuery, {{hihatQuery, settledValue, 0}});
    m_plugin->requestHHRawValue();
    return waitFor(settled(), timeoutMs);
}

QString Session::settled()
{
    return QStringLiteral("hihatRawValueChanged(54321)");
}

bool Session::endsWith(const QStringList &expected, int timeoutMs)
{
    const bool done = settle(timeoutMs);
    const QStringList actual = seen();
    if (done && actual == expected + QStringList{settled()})
        return true;
    qWarning().noquote() << "expected" << expected.join(QLatin1Char(' ')) << "\n     got"
                         << actual.join(QLatin1Char(' '));
    return false;
}

qint64 Session::destroyPlugin()
{
    QElapsedTimer timer;
    timer.start();
    m_recorder.reset();
    m_plugin.reset();
    return timer.elapsed();
}

QByteArray noise(int size, quint32 seed)
{
    QByteArray bytes(size, Qt::Uninitialized);
    quint32 state = seed;
    for (char &byte : bytes) {
        state = state * 1664525U + 1013904223U;
        byte = char(state >> 24);
    }
    return bytes;
}

QString TestFiles::write(const QString &name, const QByteArray &content) const
{
    QFile file(path(name));
    QDir().mkpath(QFileInfo(file).path());
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
    return file.fileName();
}
