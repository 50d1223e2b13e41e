#include "session.h"
#include "transferkinds.h"

#include "control/qconnectqmlplugin.h"

#include <QFile>
#include <QTest>

// The memory of a transfer does not depend on the size of the file.

namespace {

constexpr int attempts = 3;
constexpr qint64 mebibyte = 1024 * 1024;
#ifdef ZELTACONNECT_LONG_CASES
constexpr quint32 largePackets = 1024 * 2048;
constexpr int transferPatienceMs = 1200000;
#else
constexpr quint32 largePackets = 40960;
constexpr int transferPatienceMs = 180000;
#endif
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
// The data of a sanitizer grows with the number of allocations. The file is still several times larger.
constexpr qint64 allowedGrowthKiB = 8192;
#else
constexpr qint64 allowedGrowthKiB = 1024;
#endif

/// A value of /proc/self/status in KiB.
qint64 memoryStatus(const QByteArray &name)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    const auto lines = status.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith(name + ':'))
            return line.mid(name.size() + 1).simplified().split(' ').first().toLongLong();
    }
    return -1;
}

bool resetPeak()
{
    QFile file(QStringLiteral("/proc/self/clear_refs"));
    return file.open(QIODevice::WriteOnly) && file.write("5") == 1;
}

} // namespace

class TransferMemoryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oneGibibyte();

private:
    QString sparseFile(qint64 size) const;
    qint64 peakOfTransfer(const QString &path, quint32 packets) const;

    TestFiles m_files;
};

QString TransferMemoryTest::sparseFile(qint64 size) const
{
    const QString path = m_files.path(QStringLiteral("%1.b00").arg(size));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || !file.resize(size))
        qFatal("no sparse file");
    return path;
}

// Sends that many packets of the file, then the engine refuses further data.
qint64 TransferMemoryTest::peakOfTransfer(const QString &path, quint32 packets) const
{
    Session session(Session::NoRecording);
    session.peer().forgetData();
    session.peer().answerData(packets - 1, {{"DC", 0, 0x00E0}});
    bool complete = false;
    QObject::connect(&session.plugin(), &QConnectQmlPlugin::bluetoothTransferComplete, &session.plugin(),
                     [&] { complete = true; });
    if (!resetPeak())
        return -1;
    const qint64 before = memoryStatus("VmRSS");
    session.plugin().sendBtFw(path);
    if (!QTest::qWaitFor([&] { return complete; }, transferPatienceMs))
        qFatal("transfer did not end");
    return memoryStatus("VmHWM") - before;
}

void TransferMemoryTest::oneGibibyte()
{
    if (!resetPeak())
        QSKIP("the peak of this process's memory cannot be reset: /proc/self/clear_refs takes no 5");
    const QString small = sparseFile(mebibyte);
    const QString large = sparseFile(1024 * mebibyte);
    peakOfTransfer(small, 2048); // first use allocates memory once
    const qint64 smallPeak = peakOfTransfer(small, 2048);
    QVERIFY(smallPeak >= 0);
    // Queued progress signals count as well when the GUI thread is delayed. A file in memory would be
    // measured each time.
    qint64 largePeak = peakOfTransfer(large, largePackets);
    for (int i = 1; i < attempts && largePeak > smallPeak + allowedGrowthKiB; ++i)
        largePeak = peakOfTransfer(large, largePackets);
    QVERIFY(largePeak >= 0);
    QVERIFY2(largePeak <= smallPeak + allowedGrowthKiB,
             qPrintable(QStringLiteral("%1 KiB against %2 KiB").arg(largePeak).arg(smallPeak)));
}

QTEST_GUILESS_MAIN(TransferMemoryTest)
#include "tst_memory.moc"
