// Counting drops and limiting their reports, without a socket.
#include "link/dropcounter.h"

#include <QTest>

using namespace std::chrono_literals;
using zelta::DropCounter;

class DropCounterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sums_data();
    void sums();
    void reportsAtMostOnceASecond();
    void reportsTheFirstDropAtOnce_data();
    void reportsTheFirstDropAtOnce();
};

void DropCounterTest::sums_data()
{
    QTest::addColumn<QVector<quint32>>("totals");
    QTest::addColumn<quint64>("sum");
    const auto row = [](const char *name, const QVector<quint32> &totals, quint64 sum) {
        QTest::newRow(name) << totals << sum;
    };
    row("none", {}, 0);
    row("the counter does not move", {0, 0}, 0);
    row("one", {1}, 1);
    row("the same counter twice", {5, 5}, 5);
    row("several", {5, 7, 100}, 100);
    row("up to the wrap", {0xFFFFFFFF}, 0xFFFFFFFF);
    row("to zero by the wrap", {0xFFFFFFFF, 0}, 0x100000000);
    row("over the wrap", {0xFFFFFFF0, 5}, 0x100000005);
    row("twice over the wrap", {0x80000000, 0x10, 0x80000000, 0x20}, 0x200000020);
}

void DropCounterTest::sums()
{
    QFETCH(QVector<quint32>, totals);
    DropCounter counter;
    for (const quint32 total : totals)
        counter.update(total);
    QFETCH(quint64, sum);
    QCOMPARE(counter.hasUnreported(), sum > 0);
    QCOMPARE(counter.takeReport(DropCounter::TimePoint(5s)), sum);
    QVERIFY(!counter.hasUnreported());
    QCOMPARE(counter.takeReport(DropCounter::TimePoint(50s)), quint64(0));
}

void DropCounterTest::reportsAtMostOnceASecond()
{
    const auto at = [](std::chrono::milliseconds time) {
        return DropCounter::TimePoint(time);
    };
    DropCounter counter;
    counter.update(3);
    QCOMPARE(counter.takeReport(at(10000ms)), quint64(3));
    counter.update(5);
    QCOMPARE(counter.takeReport(at(10001ms)), quint64(0));
    QVERIFY(counter.hasUnreported());
    counter.update(9);
    QCOMPARE(counter.takeReport(at(10999ms)), quint64(0));
    // Everything since the last report, without a further drop.
    QCOMPARE(counter.takeReport(at(11000ms)), quint64(6));
    counter.update(10);
    QCOMPARE(counter.takeReport(at(11999ms)), quint64(0));
    QCOMPARE(counter.takeReport(at(60000ms)), quint64(1));
}

void DropCounterTest::reportsTheFirstDropAtOnce_data()
{
    QTest::addColumn<qint64>("now");
    // The clock may begin anywhere.
    QTest::newRow("at the beginning of the clock") << qint64(0);
    QTest::newRow("soon after it") << qint64(1);
    QTest::newRow("before it") << qint64(-5);
}

void DropCounterTest::reportsTheFirstDropAtOnce()
{
    QFETCH(qint64, now);
    DropCounter counter;
    counter.update(1);
    QCOMPARE(counter.takeReport(DropCounter::TimePoint(std::chrono::milliseconds(now))), quint64(1));
}

QTEST_APPLESS_MAIN(DropCounterTest)
#include "tst_dropcounter.moc"
