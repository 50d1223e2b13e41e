#include "session.h"
#include "transferkinds.h"

#include "control/qconnectqmlplugin.h"

#include <QFile>
#include <QTest>

// Files are streamed: the memory a transfer takes does not depend on the size of the file.

namespace {

constexpr int largestPatienceMs = 4 * 3600 * 1000;
constexpr int attempts = 3;
constexpr qint64 mebibyte = 1024 * 1024;
#ifdef ZELTACONNECT_LONG_CASES
constexpr quint32 largePackets = 1024 * 2048;
#else
constexpr quint32 largePackets = 40960;
#endif
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
// A sanitizer's own bookkeeping grows with the number of allocations; the file is several times larger still.
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

class tst_TransferMemory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oneGibibyte();

private:
    QString sparseFile(qint64 size) const;
    qint64 peakOfTransfer(const QString &path, quint32 packets) const;

    TestFiles m_files;
};

QString tst_TransferMemory::sparseFile(qint64 size) const
{
    const QString path = m_files.path(QStringLiteral("%1.b00").arg(size));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || !file.resize(size))
        qFatal("no sparse file");
    return path;
}

// Sends that many packets of the file; then the engine wants no more, unless that was all of it.
qint64 tst_TransferMemory::peakOfTransfer(const QString &path, quint32 packets) const
{
    Session session(Session::NoRecording);
    session.peer().forgetData();
    session.peer().answerData(packets - 1, {{0x4443, 0, 0x00E0}});
    bool complete = false;
    QObject::connect(&session.plugin(), &QConnectQmlPlugin::bluetoothTransferComplete, &session.plugin(),
                     [&] { complete = true; });
    if (!resetPeak())
        return -1;
    const qint64 before = memoryStatus("VmRSS");
    session.plugin().sendBtFw(path);
    if (!QTest::qWaitFor([&] { return complete; }, largestPatienceMs))
        qFatal("transfer did not end");
    return memoryStatus("VmHWM") - before;
}

void tst_TransferMemory::oneGibibyte()
{
    if (!resetPeak())
        QSKIP("the peak of this process's memory cannot be reset: /proc/self/clear_refs takes no 5");
    const QString small = sparseFile(mebibyte);
    const QString large = sparseFile(1024 * mebibyte);
    peakOfTransfer(small, 2048); // whatever is needed once
    const qint64 smallPeak = peakOfTransfer(small, 2048);
    QVERIFY(smallPeak >= 0);
    // Progress that waits for a thread that is kept from running counts as well. A file that is kept in
    // memory would show each time.
    qint64 largePeak = peakOfTransfer(large, largePackets);
    for (int i = 1; i < attempts && largePeak > smallPeak + allowedGrowthKiB; ++i)
        largePeak = peakOfTransfer(large, largePackets);
    QVERIFY(largePeak >= 0);
    QVERIFY2(largePeak <= smallPeak + allowedGrowthKiB,
             qPrintable(QStringLiteral("%1 KiB against %2 KiB").arg(largePeak).arg(smallPeak)));
}

QTEST_GUILESS_MAIN(tst_TransferMemory)
#include "tst_memory.moc"
