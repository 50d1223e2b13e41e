#include "session.h"

#include "control/qconnectqmlplugin.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTest>

namespace {

constexpr Tag hihatQuery = "HL";
constexpr quint16 fenceValue = 54321;

// The engine address of this program. Each session adds a port.
QString engineAddress()
{
    static const QString address =
        qEnvironmentVariable("ZELTACONNECT_ENGINE").section(QLatin1Char(':'), 0, 0);
    return address;
}

bool isProgress(const QString &name)
{
    return name == QLatin1String("soundProgressChanged") || name == QLatin1String("triggerProgressChanged") ||
           name == QLatin1String("btfwProgressChanged") || name == QLatin1String("waveTransferProgress");
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
    QStringList result;
    QString counted;
    int count = 0;
    const auto closeRun = [&] {
        if (count > 0)
            result.append(QStringLiteral("%1 x%2").arg(counted).arg(count));
        count = 0;
    };
    const QStringList texts = m_recorder->texts();
    for (const QString &text : texts) {
        const QString name = text.section(QLatin1Char('('), 0, 0);
        if (name == QLatin1String("udpPacketArrived"))
            continue;
        if (isProgress(name)) {
            if (count > 0 && counted != name)
                closeRun();
            counted = name;
            ++count;
        } else {
            closeRun();
            result.append(text);
        }
    }
    closeRun();
    return result;
}

QString Session::difference(const QStringList &expected) const
{
    if (m_recorder->foreignCount() > 0)
        return QStringLiteral("%1 signals were emitted in another thread than the GUI thread")
            .arg(m_recorder->foreignCount());
    const QStringList actual = seen();
    return actual == expected ? QString()
                              : QStringLiteral("expected %1; got %2")
                                    .arg(expected.join(QLatin1Char(' ')), actual.join(QLatin1Char(' ')));
}

void Session::forgetSeen()
{
    m_recorder->clear();
}

bool Session::waitFor(const QString &signal, int timeoutMs) const
{
    int looked = 0;
    return QTest::qWaitFor([&] { return m_recorder->hasText(signal, looked); }, timeoutMs);
}

bool Session::finishTasks(int timeoutMs)
{
    m_peer.answerQuery(hihatQuery, {{hihatQuery, fenceValue, 0}});
    m_plugin->requestHHRawValue();
    return waitFor(tasksFinished(), timeoutMs);
}

QString Session::tasksFinished()
{
    return QStringLiteral("hihatRawValueChanged(54321)");
}

QString Session::differenceWhenFinished(const QStringList &expected, int timeoutMs)
{
    const QString unfinished = finishTasks(timeoutMs) ? QString() : QStringLiteral("tasks not finished; ");
    return unfinished + difference(expected + QStringList{tasksFinished()});
}

qint64 Session::destroyPlugin()
{
    QElapsedTimer timer;
    timer.start();
    m_recorder.reset();
    m_plugin.reset();
    return timer.elapsed();
}

QString TestFiles::write(const QString &name, const QByteArray &content) const
{
    QFile file(path(name));
    QDir().mkpath(QFileInfo(file).path());
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
    return file.fileName();
}
