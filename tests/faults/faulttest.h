#pragma once

#include "control/qconnectqmlplugin.h"
#include "failures/enginethread.h"
#include "support/enginepeer.h"
#include "support/networknamespace.h"

#include <QCoreApplication>
#include <QObject>
#include <QTest>

/// A test that takes place in a network of this process alone. There the engine has its fixed address.
class FaultTest : public QObject
{
    Q_OBJECT

public:
    /// Takes why there is no private network, or nothing when there is one.
    explicit FaultTest(const QString &noNetwork)
        : m_noNetwork(noNetwork)
    {}

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

private:
    const QString m_noNetwork;
};

/// A module and the engine's socket with a cable in between.
struct FaultyLine
{
    FaultyLine();

    testsupport::EngineNetwork network;
    testsupport::EnginePeer peer;
    QConnectQmlPlugin module;
    /// Both have heard of each other.
    bool connected = false;

    /// A parameter of the module arrives, and what the engine sends arrives, whatever was before: waits for
    /// the addresses to be known again.
    bool worksAgain();
};

/// A thread for simulated engines on the engine's side of the network.
class FarEngineThread : public EngineThread
{
public:
    explicit FarEngineThread(const testsupport::EngineNetwork &network);
};

/// The main() of such a test.
template<class Test>
int runInPrivateNetwork(int argc, char **argv)
{
    // Before there is a second thread.
    const QString noNetwork = testsupport::enterPrivateNetwork();
    QCoreApplication application(argc, argv);
    Test test(noNetwork);
    return QTest::qExec(&test, argc, argv);
}
