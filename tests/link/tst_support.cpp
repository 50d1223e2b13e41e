#include "control/qconnectqmlplugin.h"
#include "support/enginepeer.h"
#include "support/fakeping.h"
#include "support/hex.h"
#include "support/logcatcher.h"
#include "support/networknamespace.h"
#include "support/signalrecorder.h"

#include <QGuiApplication>
#include <QTest>

#include <memory>

using namespace testsupport;

class SupportTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void peerAndModule()
    {
        EnginePeer peer;
        QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
        QConnectQmlPlugin module;
        QVERIFY(peer.connectTo(&module));
        SignalRecorder recorder(&module);
        QVERIFY(peer.settle(&module));
        QCOMPARE(recorder.texts(), QStringList());
        QVERIFY(peer.send(hex("544d4143 00780000")));
        QVERIFY(peer.settle(&module));
        QCOMPARE(recorder.takeTexts(), QStringList{QStringLiteral("tempoChanged()")});
        QVERIFY(peer.nothingSentBy(&module));
    }
};

QTEST_MAIN(SupportTest)
#include "tst_support.moc"
