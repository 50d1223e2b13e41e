#include "session.h"
#include "transferkinds.h"

#include "control/qconnectqmlplugin.h"

#include <QElapsedTimer>
#include <QTest>

// The end of a sound bank is awaited for ten minutes.

namespace {

constexpr int endWaitMs = 600000;
// One engine answers that much earlier.
constexpr int aheadMs = 30000;

} // namespace

class SoundBankTimeoutTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void endAcknowledgement();
};

// One engine never answers, the other one shortly before the time-out.
void SoundBankTimeoutTest::endAcknowledgement()
{
    const TestFiles files;
    const TransferKind soundBank = quickKinds().at(1);
    const QString path = files.write(soundBank.fileName, soundBank.file(100));
    Session silent;
    Session late;
    silent.peer().answerEnd({});
    late.peer().answerEnd({});
    QElapsedTimer clock;
    clock.start();
    soundBank.send(silent.plugin(), path);
    soundBank.send(late.plugin(), path);

    QVERIFY(!late.waitFor(soundBank.completed(0).constFirst(), endWaitMs - aheadMs));
    late.peer().raise({"DE", 0, 0});
    QVERIFY(late.waitFor(soundBank.completed(0).constFirst(), aheadMs));
    QVERIFY(silent.waitFor(soundBank.completed(0xFF).constFirst()));
    QVERIFY(clock.elapsed() >= endWaitMs);
    QCOMPARE(late.differenceWhenFinished(soundBank.progressed(1) + soundBank.completed(0)), QString());
    QCOMPARE(silent.differenceWhenFinished(soundBank.progressed(1) + soundBank.completed(0xFF)), QString());
}

QTEST_GUILESS_MAIN(SoundBankTimeoutTest)
#include "tst_soundbanktimeout.moc"
