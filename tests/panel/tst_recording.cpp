// "Save as scenario": what was done in the panel, played back by an engine without a panel.

#include "openpanel.h"

#include "simulator/scenarioplayer.h"
#include "simulator/standalone.h"

#include <QElapsedTimer>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>

class RecordingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void playedBackItGivesTheSameDatagrams();
    void beginsWithTheStateOfTheEngine();
    void newRecordingIsEmpty();
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
    QCOMPARE(played.takeFirst(), hex("544D4143 0078 0000"));
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
}

void RecordingTest::newRecordingIsEmpty()
{
    QVERIFY(m_open->panel.run(QStringLiteral("beat 1")));
    QCOMPARE(m_open->panel.recorder()->count(), 1);
    QVERIFY(m_open->click("scenario-new"));
    QCOMPARE(m_open->panel.recorder()->count(), 0);
    QCOMPARE(steps().filter(QStringLiteral("beat")), QStringList());
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
    recorder.restart({});
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
}

int main(int argc, char *argv[])
{
    return runOffscreen<RecordingTest>(argc, argv);
}
#include "tst_recording.moc"
