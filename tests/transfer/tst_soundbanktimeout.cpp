#include "session.h"
#include "transferkinds.h"

#include "control/qconnectqmlplugin.h"

#include <QElapsedTimer>
#include <QTest>

// A sound bank is programmed into flash before its end is acknowledged. That may take ten minutes.

namespace {

constexpr int endWaitMs = 600000;
// How long before that one of the engines answers.
constexpr int aheadMs = 30000;

} // namespace

class tst_SoundBankTimeout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void endAcknowledgement();
};

// One engine never answers, the other one a moment before the time is over.
void tst_SoundBankTimeout::endAcknowledgement()
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
    late.peer().raise({0x4445, 0, 0});
    QVERIFY(late.waitFor(soundBank.completed(0).constFirst(), aheadMs));
    QVERIFY(silent.waitFor(soundBank.completed(0xFF).constFirst()));
    QVERIFY(clock.elapsed() >= endWaitMs);
    QCOMPARE(late.differenceWhenSettled(soundBank.progressed(1) + soundBank.completed(0)), QString());
    QCOMPARE(silent.differenceWhenSettled(soundBank.progressed(1) + soundBank.completed(0xFF)), QString());
}

QTEST_GUILESS_MAIN(tst_SoundBankTimeout)
#include "tst_soundbanktimeout.moc"
