// A session of the demo screen, replayed to a module that makes the same calls.
//
// The folder session/ holds the recording of the simulated engine, the calls of the screen, and the signals
// and the values of its ZeltaConnect object. Its sound bank has the bytes of testsupport::noise().
#include "control/qconnectqmlplugin.h"
#include "simulator/comparison.h"
#include "simulator/recording.h"
#include "simulator/replayer.h"
#include "simulator/soundengine.h"
#include "support/enginepeer.h"
#include "support/noise.h"
#include "support/patience.h"
#include "support/signalrecorder.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QGuiApplication>
#include <QJSEngine>
#include <QMetaProperty>
#include <QQmlEngine>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace simulated;
using namespace testsupport;

namespace {

constexpr int bankBytes = 2500;
constexpr quint16 port = 19797;

QStringList linesOf(const char *name)
{
    QFile file(QStringLiteral(SESSION_DIR "/") + QLatin1String(name));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s cannot be read", name);
    QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    lines.removeLast();
    return lines;
}

QList<QStringList> recordedCalls()
{
    QList<QStringList> calls;
    const QStringList lines = linesOf("calls.txt");
    for (const QString &call : lines)
        calls.append({call});
    return calls;
}

// A note is one call with two datagrams, a file one call with many.
bool beginsACall(const QByteArray &datagram)
{
    return !datagram.startsWith("DC") && !datagram.startsWith("DE") && datagram.mid(4, 2) != "\x08\x89";
}

bool isOfTransferThread(const QString &text)
{
    return text.startsWith(QStringLiteral("soundProgressChanged")) ||
           text.startsWith(QStringLiteral("soundbankTransferComplete"));
}

// Signals of two threads have no fixed order between them.
QStringList signalsOf(const QStringList &texts, bool transferThread)
{
    QStringList result;
    for (const QString &text : texts) {
        if (isOfTransferThread(text) == transferThread)
            result.append(text);
    }
    return result;
}

QStringList valuesOf(const QObject &module)
{
    QStringList result;
    const QMetaObject *meta = module.metaObject();
    for (int i = meta->indexOfProperty("note"); i < meta->propertyCount(); ++i)
        result.append(QString::fromLatin1(meta->property(i).name()) + QLatin1Char(' ') +
                      meta->property(i).read(&module).toString());
    return result;
}

} // namespace

/// An engine that replays the session and a module that makes the calls as their time comes.
class ReplayedSession
{
public:
    explicit ReplayedSession(const Recording &recording)
        : m_comparison(recording)
        , m_replayer(recording, &m_engine)
    {
        QQmlEngine::setObjectOwnership(&module, QQmlEngine::CppOwnership);
        m_js.globalObject().setProperty(QStringLiteral("zelta"), m_js.newQObject(&module));
        QObject::connect(&m_engine, &SoundEngine::datagramReceived, &m_engine,
                         [this](const QByteArray &datagram) {
                             m_comparison.receive(datagram);
                             ++m_received;
                         });
        QObject::connect(&m_replayer, &Replayer::moduleSent, &m_replayer, [this](const QByteArray &datagram) {
            if (m_hasBegun && beginsACall(datagram)) {
                m_isLeftOut = !m_calls.isEmpty() && m_calls.constFirst().isEmpty();
                callNext();
            }
            m_hasBegun = true;
            m_expected += m_isLeftOut ? 0 : 1;
            // On a busy machine the module may be late. An answer must not come before its request.
            waitFor(m_expected);
        });
    }

    /// Defines a name that calls use for a file.
    void setFile(const char *name, const QString &path)
    {
        m_js.globalObject().setProperty(QLatin1String(name), path);
    }

    /// calls: for each call of the recorded session, the calls to make in its place.
    bool run(const QList<QStringList> &calls, double speed)
    {
        m_calls = calls;
        m_engine.setAnswering(false);
        if (!m_engine.listen(QHostAddress(QString::fromLocal8Bit(qgetenv("ZELTACONNECT_ENGINE"))), port))
            return false;
        m_replayer.setSpeed(speed);
        m_replayer.start();
        QSignalSpy finished(&m_replayer, &Replayer::finished);
        callNext();
        if (!finished.wait(patienceMs))
            return false;
        // The replay is over when the event that follows it has been processed.
        QSignalSpy events(&module, &QConnectQmlPlugin::udpPacketArrived);
        const int before = events.size();
        if (!m_engine.sendEvent(EnginePeer::fenceKind, 0, 0))
            return false;
        return QTest::qWaitFor([&] { return events.size() > before; }, patienceMs) && waitFor(m_expected);
    }

    Comparison::Report report() const { return m_comparison.report(); }
    QString problem() const { return m_problem; }

private:
    // m_engine is first, so that it listens before the module sends.
    SoundEngine m_engine;

public:
    QConnectQmlPlugin module;

private:
    void callNext()
    {
        if (m_calls.isEmpty())
            return;
        const QStringList calls = m_calls.takeFirst();
        for (const QString &call : calls) {
            const QJSValue result = m_js.evaluate(QStringLiteral("zelta.") + call);
            if (result.isError())
                m_problem = call + QStringLiteral(": ") + result.toString();
        }
    }

    bool waitFor(int count)
    {
        const QDeadlineTimer deadline(patienceMs);
        while (m_received < count && !deadline.hasExpired())
            QCoreApplication::processEvents();
        return m_received >= count;
    }

    QJSEngine m_js;
    QList<QStringList> m_calls;
    Comparison m_comparison;
    Replayer m_replayer;
    QString m_problem;
    bool m_hasBegun = false;
    bool m_isLeftOut = false; // the call of the latest recorded datagram
    int m_expected = 0;
    int m_received = 0;
};

class SessionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void givesTheSameSignals();
    void findsPlantedDifferences_data();
    void findsPlantedDifferences();

private:
    QString writeBank(const char *name, const QByteArray &bytes) const;

    Recording m_recording;
    QTemporaryDir m_directory;
};

void SessionTest::initTestCase()
{
    QString problem;
    QVERIFY2(m_recording.load(QStringLiteral(SESSION_DIR "/session.pcap"), &problem), qPrintable(problem));
    QCOMPARE(m_recording.size(), 548);
    QCOMPARE(m_recording.countFromModule(), 165);
}

QString SessionTest::writeBank(const char *name, const QByteArray &bytes) const
{
    QFile file(m_directory.filePath(QLatin1String(name)));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("%s cannot be written", name);
    return file.fileName();
}

void SessionTest::givesTheSameSignals()
{
    ReplayedSession session(m_recording);
    session.setFile("file", writeBank("bank.bin", noise(bankBytes)));
    SignalRecorder recorder(&session.module);
    QVERIFY2(session.run(recordedCalls(), 4.0), qPrintable(session.problem()));
    QCOMPARE(session.problem(), QString());

    const QStringList recorded = linesOf("signals.txt");
    const QStringList own = recorder.texts();
    QCOMPARE(signalsOf(own, false), signalsOf(recorded, false));
    QCOMPARE(signalsOf(own, true), signalsOf(recorded, true));
    QCOMPARE(valuesOf(session.module), linesOf("values.txt"));

    const Comparison::Report report = session.report();
    QCOMPARE(report.lines, QStringList());
    QCOMPARE(report.differences(), 0);
    QCOMPARE(report.compared, 160);
    QCOMPARE(report.files, 1);
}

void SessionTest::findsPlantedDifferences_data()
{
    QTest::addColumn<QMap<int, QStringList>>("instead");
    QTest::addColumn<QStringList>("differences");
    const auto row = [](const char *name, const QMap<int, QStringList> &instead,
                        const QStringList &differences) {
        QTest::newRow(name) << instead << differences;
    };
    // The calls are numbered from 0.
    const QString level = QStringLiteral("setMasterOutLevel(87)");        // 1
    const QString headphone = QStringLiteral("setHeadphoneOutLevel(64)"); // 7
    row("missing", {{1, {}}}, {QStringLiteral("missing: mixer master out level 87")});
    row("note missing", {{19, {}}},
        {QStringLiteral("missing: note on 38 velocity 89"), QStringLiteral("missing: note off 38")});
    row("changed", {{1, {QStringLiteral("setMasterOutLevel(86)")}}},
        {QStringLiteral("changed: mixer master out level 86, recorded mixer master out level 87")});
    row("extra", {{1, {level, QStringLiteral("setMasterOutBalance(3)")}}},
        {QStringLiteral("extra: mixer master out balance 3")});
    row("order", {{1, {headphone}}, {7, {level}}},
        {QStringLiteral("order: mixer master out level 87 was sent later"),
         QStringLiteral("order: mixer headphone out level 64 was sent earlier")});
    row("query missing", {{156, {}}}, {QStringLiteral("missing: query SN: sound bank version")});
    row("file changed", {{158, {QStringLiteral("sendSoundBank(other)")}}},
        {QStringLiteral("file: transfer start SB, 2500 bytes: packet 1 with another content"),
         QStringLiteral("file: transfer start SB, 2500 bytes: checksum 0x02681c53, recorded 0x02681b53")});
    row("file of another size", {{158, {QStringLiteral("sendSoundBank(shorter)")}}},
        {QStringLiteral("changed: transfer start SB, 2400 bytes, recorded transfer start SB, 2500 bytes")});
}

void SessionTest::findsPlantedDifferences()
{
    using Calls = QMap<int, QStringList>;
    QFETCH(Calls, instead);
    QFETCH(QStringList, differences);
    ReplayedSession session(m_recording);
    const QByteArray bank = noise(bankBytes);
    session.setFile("file", writeBank("bank.bin", bank));
    QByteArray other = bank;
    // The first byte of a word of packet 1.
    other[1024] = char(other.at(1024) + 1);
    session.setFile("other", writeBank("other.bin", other));
    session.setFile("shorter", writeBank("shorter.bin", bank.left(2400)));
    QList<QStringList> calls = recordedCalls();
    for (auto it = instead.constBegin(); it != instead.constEnd(); ++it)
        calls[it.key()] = it.value();
    QVERIFY2(session.run(calls, Replayer::maximumSpeed), qPrintable(session.problem()));
    QCOMPARE(session.problem(), QString());

    QStringList found;
    const QStringList lines = session.report().lines;
    for (QString line : lines) {
        line.remove(QStringLiteral("difference: "));
        found.append(line.remove(QRegularExpression(QStringLiteral(" at [0-9.]+ s(?=:)"))));
    }
    QCOMPARE(found, differences);
}

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    SessionTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_session.moc"
