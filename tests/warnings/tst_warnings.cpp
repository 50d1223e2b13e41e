#include "support/logcatcher.h"

#include <QCoreApplication>
#include <QDebug>
#include <QTest>

#include <thread>

// Whether the suite sees warnings. What Qt Test calls passed here, CTest has to call failed when a warning
// has been planted, which the environment decides.

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

class WarningsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void information();
    void inAnotherThread();
    void ignored();
    void caught();
    void cleared();
};

void WarningsTest::information()
{
    qInfo() << "all is well";
    warnIfPlanted("inTheTest");
    if (isPlanted("critical"))
        qCritical() << "planted";
}

void WarningsTest::inAnotherThread()
{
    std::thread([] { warnIfPlanted("inAnotherThread"); }).join();
}

void WarningsTest::ignored()
{
    QTest::ignoreMessage(QtWarningMsg, "planted");
    qWarning() << "planted";
    warnIfPlanted("besideAnExpectedOne");
}

void WarningsTest::caught()
{
    const LogCatcher log;
    qWarning() << "expected";
    QCOMPARE(log.warnings(), QStringList{QStringLiteral("expected")});
    warnIfPlanted("underACatcher");
    QCOMPARE(log.debugTexts(), QStringList());
}

void WarningsTest::cleared()
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
    WarningsTest test;
    const int status = QTest::qExec(&test, argc, argv);
    warnIfPlanted("afterTheTests");
    return status;
}

#include "tst_warnings.moc"
