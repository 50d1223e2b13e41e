#pragma once

#include "support/networknamespace.h"

#include <QCoreApplication>
#include <QObject>
#include <QTest>

namespace testsupport {

/// A test that takes place in a network of this process alone, where the engine may have its fixed address.
/// All of it is skipped, with the reason, where no such network can be had.
class PrivateNetworkTest : public QObject
{
    Q_OBJECT

public:
    /// Takes why there is no private network, or nothing when there is one.
    explicit PrivateNetworkTest(const QString &noNetwork)
        : m_noNetwork(noNetwork)
    {}

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

private:
    const QString m_noNetwork;
};

/// The main() of such a test.
template<class Test>
int runInPrivateNetwork(int argc, char **argv)
{
    // Before there is a second thread.
    const QString noNetwork = enterPrivateNetwork();
    QCoreApplication application(argc, argv);
    Test test(noNetwork);
    return QTest::qExec(&test, argc, argv);
}

} // namespace testsupport
