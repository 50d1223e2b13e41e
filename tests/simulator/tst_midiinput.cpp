// An electronic drum kit at a FIFO or a terminal, which stands in for a device file.
#include "peer.h"

#include "simulator/midiinput.h"

#include <QAbstractEventDispatcher>
#include <QEventLoop>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>

#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

using namespace simulated;

namespace {

constexpr int retryMs = 20;
constexpr int patience = 20000;

// The master's side of a terminal that passes bytes on unchanged, and the path of its other side.
int openTerminal(QString *path)
{
    const int master = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (master < 0 || ::grantpt(master) != 0 || ::unlockpt(master) != 0)
        return -1;
    termios settings = {};
    ::tcgetattr(master, &settings);
    ::cfmakeraw(&settings);
    ::tcsetattr(master, TCSANOW, &settings);
    *path = QString::fromLocal8Bit(::ptsname(master));
    return master;
}

} // namespace

class MidiInputTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void plays_data();
    void plays();
    void mapsNotes();
    void playsARecording();
    void takesEveryWriter();
    void followsAnotherFifo();
    void waitsForAPath();
    void followsADevice();
    void refusesOtherFiles_data();
    void refusesOtherFiles();
    void isIdleWhileItWaits_data();
    void isIdleWhileItWaits();
    void worksWithoutAModule();

private:
    QString path(const char *name) const { return m_directory->filePath(QLatin1String(name)); }
    void start(const QString &path);
    QStringList states() const;
    // A timer with the interval of the retries has ended several times, and so have theirs.
    static bool severalRetriesPass();
    static void write(int descriptor, const QByteArray &bytes);

    std::unique_ptr<QTemporaryDir> m_directory;
    std::unique_ptr<SoundEngine> m_engine;
    std::unique_ptr<Peer> m_peer;
    std::unique_ptr<MidiInput> m_input;
    std::unique_ptr<QSignalSpy> m_states;
    QString m_fifo;
};

void MidiInputTest::init()
{
    m_directory = std::make_unique<QTemporaryDir>();
    m_fifo = path("kit");
    QCOMPARE(::mkfifo(QFile::encodeName(m_fifo).constData(), 0600), 0);
    m_engine = std::make_unique<SoundEngine>();
    QVERIFY(Peer::listen(m_engine.get()));
    m_peer = std::make_unique<Peer>(m_engine.get());
    m_engine->setModule(QHostAddress(QHostAddress::LocalHost), m_peer->port());
}

void MidiInputTest::cleanup()
{
    m_states.reset();
    m_input.reset();
    m_peer.reset();
    m_engine.reset();
    m_directory.reset();
}

void MidiInputTest::start(const QString &path)
{
    m_input = std::make_unique<MidiInput>(path, m_engine.get());
    m_input->setRetryMs(retryMs);
    m_states = std::make_unique<QSignalSpy>(m_input.get(), &MidiInput::stateChanged);
    m_input->start();
}

// Without the path.
QStringList MidiInputTest::states() const
{
    QStringList texts;
    for (const QVariantList &state : *m_states)
        texts.append(state.at(0).toString().section(QStringLiteral(": "), 1));
    return texts;
}

bool MidiInputTest::severalRetriesPass()
{
    int ticks = 0;
    QTimer timer;
    connect(&timer, &QTimer::timeout, &timer, [&ticks] { ++ticks; });
    timer.start(retryMs);
    return QTest::qWaitFor([&ticks] { return ticks >= 5; }, patience);
}

void MidiInputTest::write(int descriptor, const QByteArray &bytes)
{
    QCOMPARE(::write(descriptor, bytes.constData(), size_t(bytes.size())), ssize_t(bytes.size()));
}

void MidiInputTest::plays_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QList<QByteArray>>("datagrams");
    const auto row = [](const char *name, const char *bytes, const QList<QByteArray> &datagrams) {
        QTest::newRow(name) << hex(bytes) << datagrams;
    };
    row("strike", "99 26 64", {datagram("IM AC 9909 6426")});
    row("strike on another channel", "90 26 64", {datagram("IM AC 9909 6426")});
    row("velocity 0", "99 26 00", {});
    row("note off", "89 26 40", {});
    row("choke", "A9 31 7F", {datagram("IM AC A90A 7F31")});
    row("release of a choke", "A9 31 00", {datagram("IM AC A90A 0031")});
    row("pedal", "B9 04 40", {datagram("IM AC B90B 4004")});
    row("other controllers", "B9 07 40 63 12 62 34 06 56", {});
    row("program change", "C9 05", {datagram("IM AC C90C 0005")});
    row("channel pressure, pitch bend", "D9 05 E9 00 40", {});
    row("SysEx", "F0 7E 7F 06 01 F7", {});
    row("a bar", "99 24 70 FE 26 50 24 00 26 00 B9 04 7F F8 99 2E 40",
        {datagram("IM AC 9909 7024"), datagram("IM AC 9909 5026"), datagram("IM AC B90B 7F04"),
         datagram("IM AC 9909 402E")});
}

void MidiInputTest::plays()
{
    QFETCH(QByteArray, bytes);
    start(m_fifo);
    QCOMPARE(states(), QStringList(QStringLiteral("waiting for a writer")));
    const int writer = ::open(QFile::encodeName(m_fifo).constData(), O_WRONLY | O_CLOEXEC);
    QVERIFY(writer >= 0);
    write(writer, bytes + hex("99 00 01")); // a strike that ends each row
    const QByteArray last = datagram("IM AC 9909 0100");
    QTRY_VERIFY_WITH_TIMEOUT(m_peer->received.contains(last), patience);
    QFETCH(QList<QByteArray>, datagrams);
    datagrams.append(last);
    QCOMPARE(m_peer->received, datagrams);
    QCOMPARE(states().constLast(), QStringLiteral("open"));
    ::close(writer);
}

void MidiInputTest::mapsNotes()
{
    start(m_fifo);
    NoteMap map;
    QString problem;
    QVERIFY(map.parse(QStringLiteral("60 snare\n61 none\n62 crash1\n"), &problem));
    m_input->setNoteMap(map);
    const int writer = ::open(QFile::encodeName(m_fifo).constData(), O_WRONLY | O_CLOEXEC);
    QVERIFY(writer >= 0);
    write(writer, hex("99 3C 64 3D 64 24 64 A9 3D 7F 3E 7F"));
    const QList<QByteArray> expected{datagram("IM AC 9909 6426"), datagram("IM AC 9909 6424"),
                                     datagram("IM AC A90A 7F31")};
    QTRY_COMPARE_WITH_TIMEOUT(m_peer->received, expected, patience);
    ::close(writer);
}

// More bytes than one read takes, cut within messages.
void MidiInputTest::playsARecording()
{
    start(m_fifo);
    QByteArray recording = hex("99");
    for (int i = 0; i < 3000; ++i)
        recording += QByteArray(1, char(i % 128)) + hex("F8 40");
    const int writer = ::open(QFile::encodeName(m_fifo).constData(), O_WRONLY | O_CLOEXEC);
    QVERIFY(writer >= 0);
    write(writer, recording);
    ::close(writer);
    QTRY_COMPARE_WITH_TIMEOUT(m_engine->counters().padHits, quint64(3000), patience);
    QTRY_COMPARE_WITH_TIMEOUT(states().constLast(), QStringLiteral("waiting for a writer"), patience);
}

void MidiInputTest::takesEveryWriter()
{
    start(m_fifo);
    for (int round = 1; round <= 20; ++round) {
        const int writer = ::open(QFile::encodeName(m_fifo).constData(), O_WRONLY | O_CLOEXEC);
        QVERIFY(writer >= 0);
        // Every second writer writes nothing. The unfinished message of one does not continue in the next.
        if (round % 2 == 0)
            write(writer, hex("64 99 26 64 99 26"));
        ::close(writer);
        QTRY_COMPARE_WITH_TIMEOUT(m_engine->counters().padHits, quint64(round / 2), patience);
        QTRY_COMPARE_WITH_TIMEOUT(states().constLast(), QStringLiteral("waiting for a writer"), patience);
    }
    QVERIFY(m_input->isOpen());
}

void MidiInputTest::followsAnotherFifo()
{
    start(m_fifo);
    QVERIFY(QFile::remove(m_fifo));
    QTRY_COMPARE_WITH_TIMEOUT(states().constLast(), QStringLiteral("No such file or directory"), patience);
    QCOMPARE(::mkfifo(QFile::encodeName(m_fifo).constData(), 0600), 0);
    QTRY_COMPARE_WITH_TIMEOUT(states().constLast(), QStringLiteral("waiting for a writer"), patience);
    const int writer = ::open(QFile::encodeName(m_fifo).constData(), O_WRONLY | O_CLOEXEC);
    QVERIFY(writer >= 0);
    write(writer, hex("99 26 64"));
    QTRY_COMPARE_WITH_TIMEOUT(m_engine->counters().padHits, quint64(1), patience);
    ::close(writer);
}

void MidiInputTest::waitsForAPath()
{
    start(path("later"));
    QCOMPARE(m_states->at(0).at(0).toString(),
             QStringLiteral("midi-in %1: No such file or directory").arg(path("later")));
    QVERIFY(severalRetriesPass());
    QCOMPARE(m_states->size(), 1); // one line, however often it tries
    QVERIFY(QFile::rename(m_fifo, path("later")));
    QTRY_COMPARE_WITH_TIMEOUT(states().constLast(), QStringLiteral("waiting for a writer"), patience);
}

void MidiInputTest::followsADevice()
{
    QString device;
    int kit = openTerminal(&device);
    if (kit < 0)
        QSKIP("no terminal for this test");
    const QString link = path("device");
    QVERIFY(QFile::link(device, link));
    start(link);
    QCOMPARE(states(), QStringList(QStringLiteral("open")));
    write(kit, hex("99 26 64 28"));
    QTRY_COMPARE_WITH_TIMEOUT(m_engine->counters().padHits, quint64(1), patience);

    ::close(kit); // the device goes away
    QTRY_COMPARE_WITH_TIMEOUT(m_states->size(), 2, patience);
    QVERIFY(!m_input->isOpen());
    QVERIFY(QFile::remove(link));
    QVERIFY(severalRetriesPass());
    QCOMPARE(m_states->size(), 2);

    kit = openTerminal(&device);
    QVERIFY(kit >= 0);
    QVERIFY(QFile::link(device, link));
    QTRY_COMPARE_WITH_TIMEOUT(states().constLast(), QStringLiteral("open"), patience);
    QCOMPARE(m_states->size(), 3);
    write(kit, hex("50 99 26 64"));
    QTRY_COMPARE_WITH_TIMEOUT(m_engine->counters().padHits, quint64(2), patience);
    ::close(kit);
}

void MidiInputTest::refusesOtherFiles_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("state");
    QTest::newRow("empty path") << QString() << QStringLiteral("No such file or directory");
    QTest::newRow("folder") << QStringLiteral("/proc") << QStringLiteral("neither a device file nor a FIFO");
    QTest::newRow("file") << QStringLiteral("/proc/self/status")
                          << QStringLiteral("neither a device file nor a FIFO");
    QTest::newRow("within a file") << QStringLiteral("/proc/self/status/kit")
                                   << QStringLiteral("Not a directory");
    QTest::newRow("device at its end") << QStringLiteral("/dev/null") << QStringLiteral("at its end");
}

void MidiInputTest::refusesOtherFiles()
{
    QFETCH(QString, name);
    start(name);
    QTRY_COMPARE_WITH_TIMEOUT(m_states->size(), 1, patience);
    QTEST(states().constLast(), "state");
    QVERIFY(severalRetriesPass());
    QCOMPARE(m_states->size(), 1);
    QVERIFY(!m_input->isOpen());
}

void MidiInputTest::isIdleWhileItWaits_data()
{
    QTest::addColumn<int>("writers");
    QTest::newRow("no writer yet") << 0;
    QTest::newRow("a writer that wrote nothing") << 1;
    QTest::newRow("several of them") << 5;
    QTest::newRow("no such file") << -1;
}

void MidiInputTest::isIdleWhileItWaits()
{
    constexpr int lengthMs = 400;
    QFETCH(int, writers);
    start(writers < 0 ? path("nothing") : m_fifo);
    m_input->setRetryMs(patience); // a loop would last as long
    for (int i = 0; i < writers; ++i) {
        const int writer = ::open(QFile::encodeName(m_fifo).constData(), O_WRONLY | O_CLOEXEC);
        QVERIFY(writer >= 0);
        QTest::qWait(retryMs / 2);
        ::close(writer);
    }
    int wakeUps = 0;
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, m_input.get(),
            [&wakeUps] { ++wakeUps; });
    QEventLoop loop;
    QTimer::singleShot(lengthMs, &loop, &QEventLoop::quit);
    loop.exec();
    // A loop without a pause has thousands of them.
    QVERIFY2(wakeUps < 100, qPrintable(QString::number(wakeUps)));
}

void MidiInputTest::worksWithoutAModule()
{
    SoundEngine engine; // knows no module
    MidiInput input(m_fifo, &engine);
    input.start();
    int writer = ::open(QFile::encodeName(m_fifo).constData(), O_WRONLY | O_CLOEXEC);
    QVERIFY(writer >= 0);
    QSignalSpy states(&input, &MidiInput::stateChanged);
    write(writer, hex("99 26 64"));
    QTRY_VERIFY_WITH_TIMEOUT(!states.isEmpty(), patience);
    ::close(writer);
    QCOMPARE(engine.counters().padHits, quint64(0));
}

QTEST_GUILESS_MAIN(MidiInputTest)
#include "tst_midiinput.moc"
