// "Save as scenario": what was done in the panel, played back by an engine without a panel.

#include "openpanel.h"

#include "simulator/scenarioplayer.h"
#include "simulator/standalone.h"

#include <QElapsedTimer>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <sys/stat.h>

class RecordingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void playedBackItGivesTheSameDatagrams();
    void beginsWithTheStateOfTheEngine();
    void stateIsPlayedBack();
    void newRecordingIsEmpty();
    void drumKitIsRecorded();
    void recordsWhatHadAnEffect();
    void isBounded();
    void isNotSaved_data();
    void isNotSaved();
    void replacesARecordedScenario();
    void savesBelowTheHomeFolder();

private:
    QStringList steps() const
    {
        return m_open->panel.recorder()
            ->text()
            .split(QLatin1Char('\n'))
            .filter(QRegularExpression(QStringLiteral("^[^#]")));
    }

    std::unique_ptr<OpenPanel> m_open;
};

void RecordingTest::init()
{
    m_open = std::make_unique<OpenPanel>();
    QVERIFY(m_open->isOpen());
}

void RecordingTest::cleanup()
{
    m_open.reset();
}

void RecordingTest::playedBackItGivesTheSameDatagrams()
{
    // Without reports, the datagrams do not depend on the time.
    QVERIFY(m_open->panel.run(QStringLiteral("meters off")));
    QElapsedTimer time;
    time.start();
    QVERIFY(m_open->click("zone-snare"));
    QVERIFY(m_open->click(QStringLiteral("zone-kick"), 0.9));
    // A held cymbal gives the recording a pause that can be measured.
    const QPoint crash = OpenPanel::pointOf(m_open->find("zone-crash1"));
    QTest::mousePress(m_open->window(), Qt::LeftButton, {}, crash);
    QTRY_COMPARE_WITH_TIMEOUT(m_open->command(), QStringLiteral("choke crash1 127"), 30000);
    QTest::mouseRelease(m_open->window(), Qt::LeftButton, {}, crash);
    QVERIFY(m_open->click("switch-foot1"));
    QVERIFY(m_open->click("switch-headphone"));
    QVERIFY(m_open->click(QStringLiteral("pedal"), 0.3));
    QTest::keyClick(m_open->window(), Qt::Key_Right);
    QVERIFY(m_open->type(QStringLiteral("tempo-number"), "133"));
    QVERIFY(m_open->click("tempo-send"));
    QVERIFY(m_open->type(QStringLiteral("program-number"), "9"));
    QVERIFY(m_open->click("program-send"));
    QVERIFY(m_open->click("tab-meters"));
    QVERIFY(m_open->click("meter-3"));
    QVERIFY(m_open->click("compressor-2"));
    QVERIFY(m_open->click("tab-answers"));
    QVERIFY(m_open->type(QStringLiteral("flash-high"), "11"));
    QVERIFY(m_open->click("flash-set"));
    const qint64 lasted = time.elapsed();
    const QList<QByteArray> sent = m_open->sent();
    QVERIFY(sent.size() > 10);

    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("my recording.scenario"));
    QVERIFY(m_open->click("scenario-path"));
    m_open->find("scenario-path")->setProperty("text", path);
    QVERIFY(m_open->click("scenario-save"));
    QCOMPARE(m_open->find("saved")->property("text").toString(), QStringLiteral("saved as ") + path);

    simulated::Scenario scenario;
    QString problem;
    QVERIFY2(scenario.load(path, &problem), qPrintable(problem));
    SoundEngine engine;
    QVERIFY(Peer::listen(&engine));
    simulated::playStandalone(&engine, false);
    simulated::ScenarioPlayer player(scenario, &engine);
    QSignalSpy finished(&player, &simulated::ScenarioPlayer::finished);
    player.start();
    QVERIFY(finished.isEmpty());
    Peer peer(&engine);
    engine.setMeters(false);
    engine.setModule(QHostAddress(QHostAddress::LocalHost), peer.port());
    time.start();
    QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, 60000);
    // The pauses are kept. The last command of the recording is at most `lasted` after the first one.
    QVERIFY2(time.elapsed() >= 350, qPrintable(QString::number(time.elapsed())));
    QVERIFY(lasted >= 350);
    QList<QByteArray> played = peer.take();
    // The first report to a new module is the tempo.
    QCOMPARE(played.takeFirst(), datagram("TM AC 0078 0000"));
    QCOMPARE(played, sent);
}

void RecordingTest::beginsWithTheStateOfTheEngine()
{
    m_open->panel.engine()->setMeters(true);
    QVERIFY(m_open->panel.run(QStringLiteral("fail resend=9")));
    QVERIFY(m_open->panel.run(QStringLiteral("fail bad-checksum")));
    QVERIFY(m_open->panel.run(QStringLiteral("meters off")));
    QVERIFY(m_open->panel.run(QStringLiteral("groove on")));
    QVERIFY(m_open->click("scenario-new"));
    QCOMPARE(steps(), (QStringList{QStringLiteral("wait-for module"), QStringLiteral("fail resend=9"),
                                   QStringLiteral("fail bad-checksum"), QStringLiteral("meters off"),
                                   QStringLiteral("groove on")}));
    for (const char *command :
         {"fail none", "groove off", "answers off", "version trigger 2 5", "version zelta 1 0", "hihat-raw 9",
          "flash 7 8", "meters 1 2 0 4 0", "comp pad 3", "comp monitor 0 6", "comp 9 0"})
        QVERIFY2(m_open->panel.run(QString::fromLatin1(command)), command);
    QVERIFY(m_open->click("scenario-new"));
    // Version 1.0 is the usual one.
    QCOMPARE(steps(), (QStringList{QStringLiteral("answers off"), QStringLiteral("version trigger 2 5"),
                                   QStringLiteral("hihat-raw 9"), QStringLiteral("wait-for module"),
                                   QStringLiteral("flash 7 8"), QStringLiteral("meters 1 2 0 4"),
                                   QStringLiteral("comp monitor 0 6"), QStringLiteral("comp pad 3"),
                                   QStringLiteral("comp 9 0"), QStringLiteral("meters off")}));
}

// An engine without a panel gives the same answers as the panel at the moment when the recording began.
void RecordingTest::stateIsPlayedBack()
{
    for (const char *command :
         {"version zelta 2 1", "version trigger 2 5", "version soundbank 3 3", "version triggerbank 4 4",
          "hihat-raw 9", "flash 7 8", "meters 1 2 0 4", "comp monitor 0 6", "meters off"})
        QVERIFY2(m_open->panel.run(QString::fromLatin1(command)), command);
    QVERIFY(m_open->click("scenario-new"));
    QVERIFY(m_open->panel.run(QStringLiteral("beat 1")));
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("x.scenario"));
    QCOMPARE(m_open->panel.recorder()->save(path), QString());

    simulated::Scenario scenario;
    QString problem;
    QVERIFY2(scenario.load(path, &problem), qPrintable(problem));
    SoundEngine engine;
    QVERIFY(Peer::listen(&engine));
    simulated::playStandalone(&engine, false);
    simulated::ScenarioPlayer player(scenario, &engine);
    QSignalSpy finished(&player, &simulated::ScenarioPlayer::finished);
    QSignalSpy notSent(&player, &simulated::ScenarioPlayer::notSent);
    player.start();
    Peer peer(&engine);
    engine.setModule(QHostAddress(QHostAddress::LocalHost), peer.port());
    QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, 60000);
    QCOMPARE(notSent.count(), 0);
    QCOMPARE(peer.take().constLast(), datagram("BT AC 0001 0000"));

    m_open->sent();
    // Versions, the hi-hat's raw value, memory, output and compressor meters.
    for (const char *question :
         {"VN 0000", "TV 0000", "SN 0000", "TN 0000", "HL 0000", "IM 0003 0BB9633D 0BB9620F 0BB90600",
          "IM 0003 0BB9633B 0BB9621F 0BB90600", "IM 0003 0BB96339 0BB9621F 0BB90600"}) {
        QVERIFY2(m_open->peer.send(question), question);
        QVERIFY2(peer.send(question), question);
        const QList<QByteArray> answers = peer.take();
        QCOMPARE(answers.size(), 1);
        QCOMPARE(answers, m_open->sent());
    }
}

void RecordingTest::newRecordingIsEmpty()
{
    QVERIFY(m_open->panel.run(QStringLiteral("beat 1")));
    QCOMPARE(m_open->panel.recorder()->count(), 1);
    QVERIFY(m_open->click("scenario-new"));
    QCOMPARE(m_open->panel.recorder()->count(), 0);
    QCOMPARE(steps().filter(QStringLiteral("beat")), QStringList());
}

void RecordingTest::drumKitIsRecorded()
{
    QTemporaryDir folder;
    const QString fifo = folder.filePath(QStringLiteral("kit"));
    QCOMPARE(::mkfifo(fifo.toLocal8Bit().constData(), 0600), 0);
    m_open->panel.kit()->connectTo(fifo);
    QFile writer(fifo);
    QVERIFY(writer.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    const auto play = [&](const char *bytes, int commands) {
        const QByteArray midi = QByteArray::fromHex(bytes);
        const int before = m_open->panel.recorder()->count();
        return writer.write(midi) == midi.size() && QTest::qWaitFor([&, before] {
                   return m_open->panel.recorder()->count() == before + commands;
               });
    };
    // A snare, a note without a pad, the end of a note, a choked cymbal, the pedal, another controller, a
    // program.
    QVERIFY(play("99 26 64  99 02 50  99 26 00  A9 31 7F  B9 04 40  B9 07 40  C9 05", 5));
    const QRegularExpression pause(QStringLiteral("^after \\d+ "));
    QStringList commands = steps();
    for (QString &command : commands)
        command.remove(pause);
    QCOMPARE(commands, (QStringList{QStringLiteral("wait-for module"), QStringLiteral("strike snare 100"),
                                    QStringLiteral("strike 2 80"), QStringLiteral("choke crash1 127"),
                                    QStringLiteral("hihat 64"), QStringLiteral("program 5")}));
}

void RecordingTest::recordsWhatHadAnEffect()
{
    QVERIFY(m_open->panel.run(QStringLiteral("  strike   snare 5 # softly")));
    QVERIFY(m_open->panel.run(QStringLiteral("summary")));
    QVERIFY(!m_open->panel.run(QStringLiteral("dance")));
    QVERIFY(m_open->panel.run(QStringLiteral("quit")));
    QCOMPARE(steps(), (QStringList{QStringLiteral("wait-for module"), QStringLiteral("strike snare 5")}));
}

void RecordingTest::isBounded()
{
    ScenarioRecorder recorder;
    recorder.restart({}, {});
    for (int i = 0; i < ScenarioRecorder::capacity + 10; ++i)
        recorder.record(QStringLiteral("beat 1"));
    QCOMPARE(recorder.count(), int(ScenarioRecorder::capacity));
}

void RecordingTest::isNotSaved_data()
{
    QTest::addColumn<bool>("recorded");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("problem");
    QTest::newRow("nothing recorded")
        << false << QStringLiteral("x.scenario") << QStringLiteral("nothing is recorded yet");
    QTest::newRow("no name") << true << QStringLiteral(" ")
                             << QStringLiteral("the scenario needs a file name");
    QTest::newRow("no such folder") << true << QStringLiteral("/no/such/folder/x")
                                    << QStringLiteral("/no/such/folder/x: ");
    QTest::newRow("folder") << true << QStringLiteral("/")
                            << QStringLiteral("/ exists and is not a recorded scenario");
    QTest::newRow("other file") << true << QStringLiteral("/etc/passwd")
                                << QStringLiteral("/etc/passwd exists and is not a recorded scenario");
}

void RecordingTest::isNotSaved()
{
    QFETCH(bool, recorded);
    QFETCH(QString, path);
    QFETCH(QString, problem);
    if (recorded)
        QVERIFY(m_open->panel.run(QStringLiteral("beat 1")));
    m_open->find("scenario-path")->setProperty("text", path);
    QVERIFY(m_open->click("scenario-save"));
    const QString shown = m_open->find("saved")->property("text").toString();
    QVERIFY2(shown.startsWith(problem), qPrintable(shown));
}

void RecordingTest::replacesARecordedScenario()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("x.scenario"));
    QVERIFY(m_open->panel.run(QStringLiteral("beat 1")));
    QCOMPARE(m_open->panel.recorder()->save(path), QString());
    QVERIFY(m_open->panel.run(QStringLiteral("beat 2")));
    QCOMPARE(m_open->panel.recorder()->save(path), QString());
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(QString::fromUtf8(file.readAll()), m_open->panel.recorder()->text());
}

void RecordingTest::savesBelowTheHomeFolder()
{
    QTemporaryDir folder;
    const QByteArray home = qgetenv("HOME");
    qputenv("HOME", folder.path().toLocal8Bit());
    QVERIFY(m_open->panel.run(QStringLiteral("beat 1")));
    const QString problem = m_open->panel.recorder()->save(QStringLiteral("~/x.scenario"));
    qputenv("HOME", home);
    QCOMPARE(problem, QString());
    QVERIFY(QFile::exists(folder.filePath(QStringLiteral("x.scenario"))));
    qputenv("HOME", folder.path().toLocal8Bit());
    const QString padded = m_open->panel.recorder()->save(QStringLiteral("  ~/y.scenario "));
    qputenv("HOME", home);
    QCOMPARE(padded, QString());
    QVERIFY(QFile::exists(folder.filePath(QStringLiteral("y.scenario"))));
}

int main(int argc, char *argv[])
{
    return runOffscreen<RecordingTest>(argc, argv);
}
#include "tst_recording.moc"
