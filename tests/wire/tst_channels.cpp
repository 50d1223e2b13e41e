#include "control/qconnectqmlplugin.h"
#include "support/datagram.h"
#include "support/enginepeer.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QScopedPointer>
#include <QTest>
#include <QTimer>

#include <functional>

#include <time.h>

using namespace testsupport;

using Send = std::function<void(quint8 channel)>;
Q_DECLARE_METATYPE(Send)

namespace {

struct ChannelRow
{
    const char *channelName;
    quint8 channel;
    const char *controlChange; ///< status bytes on that channel
    const char *noteOn;
    const char *noteOff;
};

// The status byte is the sum of status and channel, reduced to eight bits. It is not checked.
constexpr ChannelRow channelRows[] = {
    {"0", 0, "B0", "90", "80"},       {"9", 9, "B9", "99", "89"},       {"15", 15, "BF", "9F", "8F"},
    {"16", 16, "C0", "A0", "90"},     {"0x4F", 0x4F, "FF", "DF", "CF"}, {"0x50", 0x50, "00", "E0", "D0"},
    {"0x7F", 0x7F, "2F", "0F", "FF"}, {"0x80", 0x80, "30", "10", "00"}, {"255", 255, "AF", "8F", "7F"},
};

// The processor time of this thread.
qint64 processorTimeUs()
{
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return qint64(time.tv_sec) * 1000000 + time.tv_nsec / 1000;
}

} // namespace

/// The controllers with channels other than the one of the control object, and functions that only they have.
class ChannelsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void statusByte_data();
    void statusByte();
    void programKeepsItsChannel();
    void autoTestIsSent();
    void switchingOnSendsNothing();
    void transferEndBlocksFor100Ms();

private:
    void compareSent(const QByteArray &text);

    EnginePeer m_peer;
    QScopedPointer<QConnectQmlPlugin> m_module;
};

void ChannelsTest::initTestCase()
{
    QVERIFY2(m_peer.isOpen(), qPrintable(m_peer.errorString()));
    m_module.reset(new QConnectQmlPlugin);
    QVERIFY(m_peer.connectTo(m_module.data()));
}

void ChannelsTest::compareSent(const QByteArray &text)
{
    const QList<QByteArray> expected = datagrams(text);
    for (const QByteArray &datagram : expected)
        QCOMPARE(m_peer.next().toHex(' '), datagram.toHex(' '));
    QVERIFY(m_peer.nothingSentBy(m_module.data()));
    QVERIFY(!m_peer.hasPending());
}

void ChannelsTest::statusByte_data()
{
    QTest::addColumn<Send>("send");
    QTest::addColumn<quint8>("channel");
    QTest::addColumn<QByteArray>("datagrams");

    // SS, NN and PP are placeholders for the status bytes of control change, note on and note off.
    const auto rows = [](const char *what, const char *datagrams, const Send &send) {
        for (const ChannelRow &row : channelRows) {
            QByteArray expected(datagrams);
            expected.replace("SS", row.controlChange).replace("NN", row.noteOn).replace("PP", row.noteOff);
            QTest::newRow((QByteArray(what) + " on channel " + row.channelName).constData())
                << send << row.channel << expected;
        }
    };
    QConnectQmlPlugin *const module = m_module.data();

    rows("volume", "IM 0003 0BSS6337 0BSS6204 0BSS0601",
         [module](quint8 channel) { qconnectVolume(module, nullptr).setSnareStyle(1, channel); });
    rows("playback routing", "IM 0004 0BSS6337 0BSS620F 0BSS2605 0BSS0602",
         [module](quint8 channel) { qconnectVolume(module, nullptr).setPlaybackRouting(2, 5, channel); });
    rows("kit volume", "IM 0001 0BSS0764",
         [module](quint8 channel) { qconnectVolume(module, nullptr).setDrumKitVolume(100, channel); });
    rows("metronome", "IM 0004 0BSS6337 0BSS6264 0BSS2600 0BSS0632",
         [module](quint8 channel) { qconnectmetronome(module, nullptr).setMetronomeTempo(120, channel); });
    rows("master equaliser", "IM 0003 0BSS6338 0BSS6208 0BSS063F",
         [module](quint8 channel) { qconnectmaster_eq(module, nullptr).setMasterEqLowGain(0, channel); });
    rows("headphone equaliser", "IM 0003 0BSS633A 0BSS620B 0BSS067F",
         [module](quint8 channel) { qconnecthead_eq(module, nullptr).setHeadEqHighGain(40, channel); });
    rows("monitor equaliser", "IM 0003 0BSS6339 0BSS6209 0BSS0600", [module](quint8 channel) {
        qconnectmonitor_eq(module, nullptr).setMonitorEqMid2Gain(-40, channel);
    });
    rows("pad equaliser", "IM 0003 0BSS6327 0BSS6226 0BSS060E",
         [module](quint8 channel) { qconnectpad_eq(module, nullptr).setPadEqMidQ(1.0, 38, channel); });
    rows("master compressor", "IM 0003 0BSS6338 0BSS621C 0BSS0604",
         [module](quint8 channel) { qconnectmaster_cp(module, nullptr).setMasterCpRatio(4, channel); });
    rows("headphone compressor", "IM 0003 0BSS633A 0BSS621F 0BSS0600",
         [module](quint8 channel) { qconnecthead_cp(module, nullptr).requestLevelUpdate(channel); });
    rows("monitor compressor", "IM 0003 0BSS6339 0BSS621B 0BSS06C8", [module](quint8 channel) {
        qconnectmonitor_cp(module, nullptr).setMonitorCpThreshold(200, channel);
    });
    rows("pad compressor", "IM 0003 0BSS632F 0BSS6226 0BSS0600",
         [module](quint8 channel) { qconnectpad_cp(module, nullptr).requestLevelUpdate(38, channel); });
    rows("pad instrument", "IM 0003 0BSS6318 0BSS6226 0BSS0634", [module](quint8 channel) {
        qconnectpad_instrument(module, nullptr).setInstrumentCoarseTuning(-12, 38, channel);
    });
    rows("second sound", "IM 0003 0BSS6312 0BSS6226 0BSS0602 | IM 0003 0BSS6314 0BSS6226 0BSS062C",
         [module](quint8 channel) {
             qconnectpad_extra(module, nullptr).setPadExtraSecondSoundSelect(300, 38, channel);
         });
    rows("pad mixer", "IM 0004 0BSS630F 0BSS6226 0BSS2602 0BSS0601", [module](quint8 channel) {
        qconnectpad_mixer(module, nullptr).setPadMixerMultiFXDirect(1, 2, 38, channel);
    });
    rows("effects", "IM 0003 0BSS6304 0BSS6206 0BSS061F", [module](quint8 channel) {
        qconnecteffects(module, nullptr).setMultiFxParam2(0.25, 1.0, 0.0, 0, channel);
    });
    rows("trigger", "IM 0003 0BSS6341 0BSS6203 0BSS0628",
         [module](quint8 channel) { qconnecttrigger(module, nullptr).setTriggerGain(40, 3, channel); });
    rows("trigger transfer end", "IM 0003 0BSS634F 0BSS6226 0BSS0600",
         [module](quint8 channel) { qconnecttrigger(module, nullptr).sendTriggerTransferEnd(38, channel); });
    rows("MIDI test", "IM 0003 0BSS6337 0BSS6251 0BSS0623",
         [module](quint8 channel) { qconnectpad(module, nullptr).sendMidiAutoTest(channel); });
    rows("pad equaliser, frequency", "IM 0004 0BSS6326 0BSS625F 0BSS2668 0BSS0607",
         [module](quint8 channel) { qconnectpad_eq(module, nullptr).setPadEqHighFreq(1000, 95, channel); });
    rows("MIDI set-up", "IM 0003 0BSS6337 0BSS6225 0BSS0609",
         [module](quint8 channel) { qconnectmidi(module, nullptr).setSnareChannel(9, channel); });
    rows("LED brightness", "IM 0003 0BSS6337 0BSS6240 0BSS065A",
         [module](quint8 channel) { qconnectled(module, nullptr).setBrightness(90, channel); });
    rows("note", "IM 0001 09NN3C64 | IM 0001 08PP3C00",
         [module](quint8 channel) { qconnectpad(module, nullptr).sendMidiNote(60, 100, channel); });
    rows("free parameter", "IM 0003 0BSS6301 0BSS6202 0BSS067F",
         [module](quint8 channel) { qconnectpad(module, nullptr).sendNrpn(1, 2, 200, channel); });
    rows("mix-input gain", "IM 0003 0BSS633C 0BSS6221 0BSS0640 | IM 0003 0BSS633F 0BSS6221 0BSS0640",
         [module](quint8 channel) { qconnectpad(module, nullptr).sendMidiMixInputGain(64, channel); });
    rows("power off", "PW 0002 0BSS634F 0BSS6246",
         [module](quint8 channel) { qconnectswitches(module, nullptr).setPowerSwitch(false, channel); });
    rows("auto-off", "IM 0003 0BSS6337 0BSS6242 0BSS062C",
         [module](quint8 channel) { qconnectswitches(module, nullptr).setAutoOff(300, channel); });
    rows("sample slots", "IM 0003 0BSS633D 0BSS6270 0BSS0605",
         [module](quint8 channel) { qconnectfirmware(module, nullptr).deleteIsSlot(5, channel); });
    rows("all sample slots", "IM 0003 0BSS633D 0BSS627F 0BSS067E",
         [module](quint8 channel) { qconnectfirmware(module, nullptr).deleteAllSlots(channel); });
}

void ChannelsTest::statusByte()
{
    QFETCH(Send, send);
    QFETCH(quint8, channel);
    QFETCH(QByteArray, datagrams);
    m_peer.discardPending();
    send(channel);
    compareSent(datagrams);
}

void ChannelsTest::programKeepsItsChannel()
{
    qconnectprogram(m_module.data(), nullptr).setNewProgram(5);
    compareSent("IM 0001 0CC90500");
}

void ChannelsTest::autoTestIsSent()
{
    qconnectpad(m_module.data(), nullptr).sendMidiAutoTest(9);
    compareSent("IM 0003 0BB96337 0BB96251 0BB90623");
}

void ChannelsTest::switchingOnSendsNothing()
{
    qconnectswitches(m_module.data(), nullptr).setPowerSwitch(true, 9);
    QVERIFY(m_peer.nothingSentBy(m_module.data()));
    QVERIFY(!m_peer.hasPending());
}

// The method polls the clock until the time has passed. It neither sleeps, which could take longer, nor
// processes events.
void ChannelsTest::transferEndBlocksFor100Ms()
{
    // Of 100 ms. A busy machine can give this thread less than its share.
    constexpr qint64 leastWorkUs = 2000;
    constexpr int attempts = 5;
    qint64 workedUs = 0;
    for (int i = 0; i < attempts && workedUs <= leastWorkUs; ++i) {
        bool somethingHappened = false;
        QTimer::singleShot(0, this, [&somethingHappened] { somethingHappened = true; });
        const qint64 beforeUs = processorTimeUs();
        QElapsedTimer timer;
        timer.start();
        qconnecttrigger(m_module.data(), nullptr).sendTriggerTransferEnd(38, 9);
        const qint64 elapsedMs = timer.elapsed();
        workedUs = processorTimeUs() - beforeUs;
        QVERIFY2(elapsedMs >= 100, qPrintable(QString::number(elapsedMs)));
        QVERIFY(!somethingHappened);
        // The datagram was sent before the pause, so it has already arrived.
        QVERIFY(m_peer.hasPending());
        compareSent("IM 0003 0BB9634F 0BB96226 0BB90600");
        QTRY_VERIFY_WITH_TIMEOUT(somethingHappened, patienceMs);
    }
    QVERIFY2(workedUs > leastWorkUs, qPrintable(QString::number(workedUs)));
}

QTEST_MAIN(ChannelsTest)
#include "tst_channels.moc"
