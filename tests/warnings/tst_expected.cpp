#include "support/logcatcher.h"

#include <QCoreApplication>
#include <QDebug>
#include <QTest>

#include <thread>

// Checks that the tests detect warnings. The environment selects a planted warning. All functions pass in Qt
// Test, and CTest must find the warning.

using testsupport::LogCatcher;

namespace {

bool isPlanted(const char *where)
{
    return qgetenv("ZELTACONNECT_TEST_PLANT") == where;
}

void warnIfPlanted(const char *where)
{
    if (isPlanted(where))
        qWarning() << "planted";
}

} // namespace

class ExpectedTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void information();
    void inAnotherThread();
    void ignored();
    void caught();
    void cleared();
};

void ExpectedTest::information()
{
    qInfo() << "all is well";
    warnIfPlanted("inTheTest");
    if (isPlanted("critical"))
        qCritical() << "planted";
}

void ExpectedTest::inAnotherThread()
{
    std::thread([] { warnIfPlanted("inAnotherThread"); }).join();
}

void ExpectedTest::ignored()
{
    QTest::ignoreMessage(QtWarningMsg, "planted");
    qWarning() << "planted";
    warnIfPlanted("besideAnExpectedOne");
}

void ExpectedTest::caught()
{
    const LogCatcher log;
    qWarning() << "expected";
    QCOMPARE(log.warnings(), QStringList{QStringLiteral("expected")});
    warnIfPlanted("underACatcher");
    QCOMPARE(log.debugTexts(), QStringList());
}

void ExpectedTest::cleared()
{
    LogCatcher log;
    qDebug() << "forgotten";
    warnIfPlanted("andCleared");
    log.clear();
    QCOMPARE(log.debugTexts(), QStringList());
}

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    ExpectedTest test;
    const int status = QTest::qExec(&test, argc, argv);
    warnIfPlanted("afterTheTests");
    return status;
}

#include "tst_expected.moc"
