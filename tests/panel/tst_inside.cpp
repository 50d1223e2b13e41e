// The pages of the panel: messages, parameters, failure modes, meters, answers, and the state of a transfer.

#include "openpanel.h"
#include "sender.h"

#include "simulator/failures.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <sys/stat.h>

using simulated::failureModes;

namespace {

constexpr int patience = 30000;

} // namespace

class InsideTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void streamShowsBothDirections_data();
    void streamShowsBothDirections();
    void streamIsFiltered();
    void streamWaitsWhilePaused();
    void streamIsBounded();
    void metersAndFileDataAreHidden();
    void parametersShowTheLatestFirst();
    void parametersAreSearched();
    void failureModeSwitches_data();
    void failureModeSwitches();
    void failureModeActsWithinATransfer();
    void allFailureModesSwitchOff();
    void numberOfAnActiveModeChanges();
    void outputMetersAreSetByHand_data();
    void outputMetersAreSetByHand();
    void compressorMetersAreSetByHand_data();
    void compressorMetersAreSetByHand();
    void metersFollowTheHitsAgain();
    void answersAreSet_data();
    void answersAreSet();
    void realKitPlays();
    void kitThatCannotBeReadIsExplained();
    void transferIsShown();
    void commandsAreTyped();
    void wrongCommandIsExplained_data();
    void wrongCommandIsExplained();

private:
    QVariant messageAt(int row, MessageStream::Role role) const
    {
        return m_open->panel.messages()->index(row, 0).data(role);
    }
    QStringList messages() const
    {
        QStringList lines;
        for (int row = 0; row < m_open->panel.messages()->rowCount(); ++row)
            lines.append(messageAt(row, MessageStream::TextRole).toString());
        return lines;
    }
    // Shows a row of the list of failure modes.
    bool showFailure(int row)
    {
        return m_open->click("tab-failures") &&
               QMetaObject::invokeMethod(m_open->find("failures-list"), "positionViewAtIndex",
                                         Q_ARG(int, row), Q_ARG(int, 0)) &&
               QTest::qWaitFor([this, row] { return m_open->find(failureButton(row)) != nullptr; }, patience);
    }
    static QString failureButton(int row)
    {
        return QStringLiteral("failure-") + QLatin1String(failureModes().at(row).name);
    }

    std::unique_ptr<OpenPanel> m_open;
};

void InsideTest::initTestCase()
{
    m_open = std::make_unique<OpenPanel>();
    QVERIFY(m_open->isOpen());
}

void InsideTest::init()
{
    m_open->panel.run(QStringLiteral("fail none"));
    m_open->panel.run(QStringLiteral("meters auto"));
    m_open->sent();
    m_open->panel.stream()->setPaused(false);
    m_open->panel.stream()->clear();
}

void InsideTest::cleanupTestCase()
{
    m_open.reset();
}

void InsideTest::streamShowsBothDirections_data()
{
    QTest::addColumn<bool>("fromModule");
    QTest::addColumn<QByteArray>("datagram");
    QTest::addColumn<QString>("words");
    const auto in = [](const char *bytes, const char *words) {
        QTest::newRow(words) << true << hex(bytes) << QString::fromLatin1(words);
    };
    const auto out = [](const char *bytes, const char *words) {
        QTest::newRow(words) << false << hex(bytes) << QString::fromLatin1(words);
    };
    in("494D0003 0BB96338 0BB96207 0BB90664", "mixer master out level 100");
    in("544E0000", "query TN: trigger bank version");
    out("494D4143 9909 7F26", "pad 1 snare zone 0 velocity 127");
    out("494D4143 9909 0163", "note 99 velocity 1, no pad");
    out("494D4143 A90A 7F31", "pad 8 crash1 pressure 127");
    out("494D4143 B90B 4004", "controller 4 value 64");
    out("494D4143 B90B 0107", "controller 7 value 1");
    out("494D4143 C90C 0005", "program change 5");
    out("494D4143 F705 0000", "sysex F7");
    out("494D4143 800B 0001", "MIDI event 80 0B 00 01, which the module ignores");
    out("42544143 0002 0000", "beat 2");
    out("544D4143 0078 0000", "tempo 120");
    out("53574143 4850 0001", "switch headphone 1");
    out("53574143 5A5A 0001", "switch ZZ 1");
    out("434F4143 0003 0001", "pot 3 +");
    out("434F4143 0000 0000", "pot 0 -");
    out("46524143 0200 0100", "flash size 33554432, total 67109376");
    out("564E4143 0001 0005", "reply VN: sound engine version 1.5");
    out("54564143 0002 0000", "reply TV: trigger board version 2.0");
    out("534E4143 0001 0002", "reply SN: sound bank version 1.2");
    out("544E4143 0003 0004", "reply TN: trigger bank version 3.4");
    out("484C4143 0209 0000", "reply HL: hi-hat raw value 521");
    out("49534143 0003 0001", "event IS 3 1");
    out("49574143 0004 0000", "event IW 4 0");
    out("44434143 0005 00BE", "transfer resend from packet 5");
    out("44434143 0000 01BE", "transfer resend from packet 65536");
    out("44434143 0005 00E1", "transfer refused, memory full, code 0xe1");
    out("44454143 0000 0001", "transfer end acknowledged, status 0x0001");
    out("41424143 0001 0002", "event AB 1 2");
    out("0102", "unreadable datagram: 2 bytes of no known form");
}

void InsideTest::streamShowsBothDirections()
{
    QFETCH(bool, fromModule);
    QFETCH(QByteArray, datagram);
    QFETCH(QString, words);
    if (fromModule)
        QVERIFY(m_open->peer.send(datagram));
    else
        QVERIFY(m_open->panel.engine()->sendRaw(datagram));
    QTRY_VERIFY_WITH_TIMEOUT(messages().contains(words), patience);
    const int row = messages().indexOf(words);
    QCOMPARE(messageAt(row, MessageStream::KindRole).toInt(),
             int(fromModule ? MessageStream::Kind::Received : MessageStream::Kind::Sent));
    const QString bytes = messageAt(row, MessageStream::BytesRole).toString();
    QCOMPARE(QByteArray::fromHex(bytes.toLatin1()), datagram);
}

void InsideTest::streamIsFiltered()
{
    m_open->panel.engine()->strike(38, 100);
    QVERIFY(m_open->peer.send("494D0003 0BB96338 0BB96207 0BB90664"));
    QTRY_COMPARE_WITH_TIMEOUT(messages().size(), 2, patience);
    QVERIFY(m_open->click("tab-messages"));
    QVERIFY(m_open->click("messages-sent"));
    QCOMPARE(messages(), QStringList{QStringLiteral("mixer master out level 100")});
    QVERIFY(m_open->click("messages-sent"));
    QVERIFY(m_open->click("messages-received"));
    QCOMPARE(messages(), QStringList{QStringLiteral("pad 1 snare zone 0 velocity 100")});
    QVERIFY(m_open->click("messages-received"));

    QVERIFY(m_open->click("messages-search"));
    for (const char letter : {'M', 'A', 'S', 'T'})
        QTest::keyClick(m_open->window(), letter);
    QCOMPARE(messages(), QStringList{QStringLiteral("mixer master out level 100")});
    QTest::keyClick(m_open->window(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(m_open->window(), Qt::Key_Delete);
    QCOMPARE(messages().size(), 2);
}

void InsideTest::streamWaitsWhilePaused()
{
    QVERIFY(m_open->click("tab-messages"));
    QVERIFY(m_open->click("messages-pause"));
    for (int i = 0; i < MessageStream::capacity + 5; ++i)
        m_open->panel.stream()->add(MessageStream::Kind::Note, QString::number(i));
    QCOMPARE(messages(), QStringList());
    QVERIFY(m_open->click("messages-pause"));
    // The latest line is on top, the oldest ones were dropped.
    QCOMPARE(messages().size(), int(MessageStream::capacity));
    QCOMPARE(messages().constFirst(), QString::number(MessageStream::capacity + 4));
    QCOMPARE(messages().constLast(), QStringLiteral("5"));
    QVERIFY(m_open->click("messages-clear"));
    QCOMPARE(messages(), QStringList());
}

void InsideTest::streamIsBounded()
{
    for (int i = 0; i < 3; ++i) {
        for (int k = 0; k < MessageStream::capacity; ++k)
            m_open->panel.stream()->add(MessageStream::Kind::Note, QString::number(i));
        QTRY_VERIFY_WITH_TIMEOUT(messages().value(0) == QString::number(i), patience);
    }
    QCOMPARE(m_open->panel.stream()->rowCount(), int(MessageStream::capacity));
}

void InsideTest::metersAndFileDataAreHidden()
{
    QVERIFY(m_open->click("tab-messages"));
    const QByteArray meters = "DR" + QByteArray(36, '\0');
    const QByteArray data = hex("44435442 00000000 0001 0000");
    m_open->panel.engine()->sendRaw(meters);
    QVERIFY(m_open->peer.send(data));
    m_open->panel.engine()->sendTempo(99);
    QTRY_VERIFY_WITH_TIMEOUT(messages().contains(QStringLiteral("tempo 99")), patience);
    QVERIFY(messages().filter(QStringLiteral("output meters")).isEmpty());
    QVERIFY(messages().filter(QStringLiteral("transfer data")).isEmpty());
    QVERIFY(m_open->click("messages-meters"));
    QVERIFY(m_open->click("messages-data"));
    m_open->panel.engine()->sendRaw(meters);
    QVERIFY(m_open->peer.send(data));
    QTRY_COMPARE_WITH_TIMEOUT(messages().filter(QStringLiteral("output meters 0 0")).size(), 1, patience);
    QTRY_COMPARE_WITH_TIMEOUT(messages().filter(QStringLiteral("transfer data TB, packet 0")).size(), 1,
                              patience);
    QVERIFY(m_open->click("messages-meters"));
    QVERIFY(m_open->click("messages-data"));
}

void InsideTest::parametersShowTheLatestFirst()
{
    const auto row = [this](int index) {
        const QModelIndex at = m_open->panel.parameters()->index(index, 0);
        return QStringList{at.data(ParameterTable::NumberRole).toString(),
                           at.data(ParameterTable::NameRole).toString(),
                           at.data(ParameterTable::ValueRole).toString()};
    };
    const QStringList level = {QStringLiteral("0x38/0x07"), QStringLiteral("mixer master out level"),
                               QStringLiteral("100")};
    const QStringList tempo = {QStringLiteral("0x37/0x64"), QStringLiteral("metronome tempo"),
                               QStringLiteral("121")};
    const QStringList unknown = {QStringLiteral("0x7e/0x22"), QStringLiteral("unknown"), QStringLiteral("5")};
    QVERIFY(m_open->peer.send("494D0003 0BB96338 0BB96207 0BB90664"));
    QTRY_COMPARE_WITH_TIMEOUT(row(0), level, patience);
    QVERIFY(m_open->peer.send("494D0004 0BB96337 0BB96264 0BB92640 0BB90632"));
    QTRY_COMPARE_WITH_TIMEOUT(row(0), tempo, patience);
    QCOMPARE(row(1), level);
    QVERIFY(m_open->peer.send("494D0003 0BB9637E 0BB96222 0BB90605"));
    QTRY_COMPARE_WITH_TIMEOUT(row(0), unknown, patience);
    // A number that is set again moves to the top.
    QVERIFY(m_open->peer.send("494D0003 0BB96338 0BB96207 0BB90601"));
    QTRY_COMPARE_WITH_TIMEOUT(row(0).constLast(), QStringLiteral("1"), patience);
    QCOMPARE(row(0).constFirst(), level.first());
    QCOMPARE(row(1), unknown);
    QCOMPARE(row(2), tempo);

    // Many at once, in two packets of the same numbers.
    const int before = m_open->panel.parameters()->rowCount();
    for (const int value : {1, 2}) {
        for (int note = 0; note < 100; ++note) {
            QByteArray datagram = hex("494D0003 0BB96321 0BB96200 0BB90600");
            datagram[11] = char(note);
            datagram[15] = char(value);
            m_open->peer.send(datagram);
        }
    }
    QTRY_COMPARE_WITH_TIMEOUT(
        row(0),
        (QStringList{QStringLiteral("0x21/0x63"), QStringLiteral("pad 99 EQ low gain"), QStringLiteral("2")}),
        patience);
    QCOMPARE(m_open->panel.parameters()->rowCount(), before + 100);
    QCOMPARE(row(99).at(1), QStringLiteral("pad 0 EQ low gain"));
}

void InsideTest::parametersAreSearched()
{
    QVERIFY(m_open->peer.send("494D0003 0BB96338 0BB96207 0BB90664"));
    QVERIFY(m_open->peer.send("494D0003 0BB96303 0BB96200 0BB90611"));
    QVERIFY(m_open->click("tab-parameters"));
    QVERIFY(m_open->click("parameters-search"));
    const auto search = [this](const char *text) {
        QTest::keyClick(m_open->window(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(m_open->window(), Qt::Key_Delete);
        for (const char *letter = text; *letter != '\0'; ++letter)
            QTest::keyClick(m_open->window(), *letter);
    };
    const auto names = [this] {
        QStringList all;
        for (int row = 0; row < m_open->panel.parameters()->rowCount(); ++row)
            all.append(m_open->panel.parameters()->index(row, 0).data(ParameterTable::NameRole).toString());
        return all;
    };
    search("Room R");
    QTRY_COMPARE_WITH_TIMEOUT(names(), QStringList{QStringLiteral("room reverb level")}, patience);
    search("0x38/");
    QCOMPARE(names(), QStringList{QStringLiteral("mixer master out level")});
    search("no such parameter");
    QCOMPARE(names(), QStringList());
    search("");
    QVERIFY(names().size() >= 2);
}

void InsideTest::failureModeSwitches_data()
{
    QTest::addColumn<int>("row");
    for (int row = 0; row < failureModes().size(); ++row)
        QTest::newRow(failureModes().at(row).name) << row;
}

void InsideTest::failureModeSwitches()
{
    QFETCH(int, row);
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    const bool takesNumber = failureModes().at(row).defaultValue >= 0;
    QVERIFY(showFailure(row));
    if (takesNumber)
        QVERIFY(m_open->type(QStringLiteral("failure-number-") + name, "7"));
    QVERIFY(m_open->click(failureButton(row)));
    const auto &active = m_open->panel.engine()->failures().active();
    QCOMPARE(active.size(), 1);
    QCOMPARE(active.first().name, name);
    QCOMPARE(active.first().value, takesNumber ? 7 : -1);
    QCOMPARE(m_open->command(),
             QStringLiteral("fail ") + name + (takesNumber ? QStringLiteral("=7") : QString()));
    QVERIFY(m_open->find(failureButton(row))->property("lit").toBool());
    QCOMPARE(m_open->panel.failures()->activeCount(), 1);

    QVERIFY(m_open->click(failureButton(row)));
    QCOMPARE(m_open->panel.engine()->failures().active().size(), 0);
    QCOMPARE(m_open->command(), QStringLiteral("fail %1 off").arg(name));
    QVERIFY(!m_open->find(failureButton(row))->property("lit").toBool());
}

// The mode is switched on after the start of the file and off before its end.
void InsideTest::failureModeActsWithinATransfer()
{
    Sender sender(&m_open->peer, "TB", noise(512 * 20));
    QVERIFY(sender.start());
    QVERIFY(sender.dataFromTo(0, 4));
    m_open->sent();
    QVERIFY(showFailure(0));
    QVERIFY(m_open->type(QStringLiteral("failure-number-resend"), "9"));
    QVERIFY(m_open->click("failure-resend"));
    QVERIFY(sender.dataFromTo(5, 9));
    QCOMPARE(m_open->sent(), QList<QByteArray>{hex("44434143 0009 00BE")});
    QVERIFY(m_open->click("failure-resend"));
    int bad = 0;
    while (QLatin1String(failureModes().at(bad).name) != QLatin1String("bad-checksum"))
        ++bad;
    QVERIFY(showFailure(bad));
    QVERIFY(m_open->click("failure-bad-checksum"));
    QVERIFY(m_open->click("failure-bad-checksum"));
    // After the request, the sender repeats packet 9.
    QVERIFY(sender.dataFromTo(9, 19));
    QVERIFY(sender.end());
    QCOMPARE(m_open->sent(), QList<QByteArray>{hex("44454143 0000 0000")});
}

void InsideTest::allFailureModesSwitchOff()
{
    QVERIFY(showFailure(0));
    QVERIFY(m_open->click("failure-resend"));
    QVERIFY(m_open->click("failure-resend-twice"));
    QCOMPARE(m_open->panel.failures()->activeCount(), 2);
    QVERIFY(m_open->click("failures-none"));
    QCOMPARE(m_open->panel.failures()->activeCount(), 0);
    QCOMPARE(m_open->command(), QStringLiteral("fail none"));
}

void InsideTest::numberOfAnActiveModeChanges()
{
    QVERIFY(showFailure(0));
    QVERIFY(m_open->click("failure-resend"));
    QVERIFY(m_open->type(QStringLiteral("failure-number-resend"), "33"));
    QTest::keyClick(m_open->window(), Qt::Key_Return);
    const auto &active = m_open->panel.engine()->failures().active();
    QCOMPARE(active.size(), 1);
    QCOMPARE(active.first().value, 33);
}

void InsideTest::outputMetersAreSetByHand_data()
{
    QTest::addColumn<int>("meter");
    for (int meter = 0; meter < 18; ++meter)
        QTest::addRow("meter %d", meter) << meter;
}

void InsideTest::outputMetersAreSetByHand()
{
    QFETCH(int, meter);
    QVERIFY(m_open->click("tab-meters"));
    QVERIFY(m_open->panel.isFollowingHits());
    m_open->panel.engine()->sendOutputMeters({});
    m_open->sent();
    QQuickItem *bar = m_open->find(QStringLiteral("meter-%1").arg(meter));
    QVERIFY(bar != nullptr);
    const QQuickItem *slider = OpenPanel::findIn(bar, QStringLiteral("level"));
    QTest::mouseClick(m_open->window(), Qt::LeftButton, {}, OpenPanel::pointOf(slider, 0.5, 0.0));
    const QList<QByteArray> sent = m_open->sent();
    QCOMPARE(sent.size(), 1);
    QByteArray expected = "DR" + QByteArray(36, '\0');
    expected[2 + 2 * meter + 1] = 70;
    QCOMPARE(sent.first(), expected);
    QVERIFY(!m_open->panel.isFollowingHits());
}

void InsideTest::compressorMetersAreSetByHand_data()
{
    QTest::addColumn<int>("section");
    QTest::addColumn<int>("level");
    int section = 0;
    for (const char *name : {"master", "monitor", "headphone", "pad"}) {
        for (int level = 0; level < 6; ++level)
            QTest::addRow("%s %d", name, level) << section << level;
        ++section;
    }
}

void InsideTest::compressorMetersAreSetByHand()
{
    QFETCH(int, section);
    QFETCH(int, level);
    const QStringList names = {QStringLiteral("master"), QStringLiteral("monitor"),
                               QStringLiteral("headphone"), QStringLiteral("pad")};
    QVERIFY(m_open->click("tab-meters"));
    QVERIFY(m_open->click(QStringLiteral("section-") + names.at(section)));
    const QQuickItem *slider =
        OpenPanel::findIn(m_open->find(QStringLiteral("compressor-%1").arg(level)), QStringLiteral("level"));
    QVERIFY(slider != nullptr);
    QTest::mouseClick(m_open->window(), Qt::LeftButton, {}, OpenPanel::pointOf(slider, 0.5, 0.0));
    const QList<QByteArray> sent = m_open->sent();
    QCOMPARE(sent.size(), 1);
    // The levels that earlier rows have set stay.
    QByteArray expected = "CR" + QByteArray(14, '\0');
    expected[3] = char(section);
    for (int i = 0; i <= level; ++i)
        expected[4 + 2 * i + 1] = 70;
    QCOMPARE(sent.first(), expected);
}

void InsideTest::metersFollowTheHitsAgain()
{
    QVERIFY(m_open->click("tab-meters"));
    m_open->panel.run(QStringLiteral("meters 70 70"));
    QVERIFY(!m_open->panel.isFollowingHits());
    QVERIFY(m_open->click("meters-auto"));
    QVERIFY(m_open->panel.isFollowingHits());
    QCOMPARE(m_open->command(), QStringLiteral("meters auto"));
    QVERIFY(m_open->click("meters-reports"));
    QCOMPARE(m_open->command(), QStringLiteral("meters on"));
    m_open->panel.engine()->strike(49, 127);
    const QQuickItem *slider = OpenPanel::findIn(m_open->find("meter-0"), QStringLiteral("level"));
    QTRY_VERIFY_WITH_TIMEOUT(slider->property("value").toInt() > 5, patience);
    QVERIFY(m_open->click("meters-reports"));
    QCOMPARE(m_open->command(), QStringLiteral("meters off"));
}

void InsideTest::answersAreSet_data()
{
    QTest::addColumn<QStringList>("boxes");
    QTest::addColumn<QByteArray>("query");
    QTest::addColumn<QByteArray>("answer");
    const QStringList version = {QStringLiteral("major"), QStringLiteral("minor")};
    QTest::newRow("version-zelta") << version << hex("564E0000") << hex("564E4143 0007 0007");
    QTest::newRow("version-trigger") << version << hex("54560000") << hex("54564143 0007 0007");
    QTest::newRow("version-soundbank") << version << hex("534E0000") << hex("534E4143 0007 0007");
    QTest::newRow("version-triggerbank") << version << hex("544E0000") << hex("544E4143 0007 0007");
    QTest::newRow("hihat-raw") << QStringList{QStringLiteral("value")} << hex("484C0000")
                               << hex("484C4143 0007 0000");
    QTest::newRow("flash") << QStringList{QStringLiteral("high"), QStringLiteral("low")}
                           << hex("494D0003 0BB9633D 0BB9620F 0BB90600") << hex("46524143 0007 0007");
}

void InsideTest::answersAreSet()
{
    QFETCH(QStringList, boxes);
    QFETCH(QByteArray, query);
    QFETCH(QByteArray, answer);
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    QVERIFY(m_open->click("tab-answers"));
    for (const QString &box : boxes)
        QVERIFY(m_open->type(name + QLatin1Char('-') + box, "7"));
    QVERIFY(m_open->click(name + QStringLiteral("-set")));
    const QList<QByteArray> reported =
        name == QLatin1String("flash") ? QList<QByteArray>{answer} : QList<QByteArray>();
    QCOMPARE(m_open->sent(), reported);
    QVERIFY(m_open->peer.send(query));
    QCOMPARE(m_open->sent(), QList<QByteArray>{answer});
}

void InsideTest::realKitPlays()
{
    QTemporaryDir folder;
    const QString fifo = folder.filePath(QStringLiteral("kit"));
    QCOMPARE(::mkfifo(fifo.toLocal8Bit().constData(), 0600), 0);
    const QString map = folder.filePath(QStringLiteral("notes"));
    QFile notes(map);
    QVERIFY(notes.open(QIODevice::WriteOnly) && notes.write("35 kick\n") > 0);
    notes.close();
    QVERIFY(m_open->click("tab-answers"));
    m_open->find("kit-device")->setProperty("text", fifo);
    m_open->find("kit-notes")->setProperty("text", map);
    QVERIFY(m_open->click("kit-connect"));
    QVERIFY(m_open->panel.kit()->isConnected());
    QFile writer(fifo);
    QVERIFY(writer.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    // A snare, and a bass drum with another note, in running status.
    QCOMPARE(writer.write(QByteArray::fromHex("99 26 64 23 50")), qint64(5));
    QList<QByteArray> sent;
    QTRY_VERIFY_WITH_TIMEOUT((sent += m_open->sent()).size() >= 2, patience);
    QCOMPARE(sent, (QList<QByteArray>{hex("494D4143 9909 6426"), hex("494D4143 9909 5024")}));
    QVERIFY(m_open->find("kit-state")->property("text").toString().contains(fifo));
    QVERIFY(m_open->click("kit-connect"));
    QVERIFY(!m_open->panel.kit()->isConnected());
    QCOMPARE(m_open->find("kit-state")->property("text").toString(), QStringLiteral("not connected"));
}

void InsideTest::kitThatCannotBeReadIsExplained()
{
    RealKit *kit = m_open->panel.kit();
    kit->connectTo(QStringLiteral("/no/such/device"));
    QTRY_VERIFY_WITH_TIMEOUT(kit->state().contains(QStringLiteral("/no/such/device")), patience);
    // It is tried again.
    QVERIFY(kit->isConnected());
    kit->connectTo(QStringLiteral(" "));
    QVERIFY(!kit->isConnected());
    QCOMPARE(kit->state(), QStringLiteral("a kit needs a device file or a FIFO"));
    kit->connectTo(QStringLiteral("/dev/null"), QStringLiteral("/no/such/map"));
    QVERIFY(!kit->isConnected());
    QVERIFY2(kit->state().contains(QStringLiteral("/no/such/map")), qPrintable(kit->state()));
    kit->disconnectKit();
}

void InsideTest::transferIsShown()
{
    TransferState *state = m_open->panel.transfer();
    Sender sender(&m_open->peer, "SB", noise(1024 * 10));
    QVERIFY(sender.start());
    QTRY_VERIFY_WITH_TIMEOUT(state->isRunning(), patience);
    QVERIFY(sender.dataFromTo(0, 4));
    QTRY_COMPARE_WITH_TIMEOUT(m_open->find("transfer-text")->property("text").toString(),
                              QStringLiteral("SB: 5120 of 10240 bytes, packet 4"), patience);
    QCOMPARE(state->part(), 0.5);
    QVERIFY(sender.dataFromTo(5, 9));
    QVERIFY(sender.end());
    QTRY_COMPARE_WITH_TIMEOUT(m_open->find("transfer-text")->property("text").toString(),
                              QStringLiteral("SB, 10240 bytes: arrived whole"), patience);
    QCOMPARE(state->part(), 1.0);

    m_open->panel.run(QStringLiteral("fail refuse-e5=1"));
    Sender refused(&m_open->peer, "TB", noise(512 * 4));
    QVERIFY(refused.start());
    QVERIFY(refused.dataFromTo(0, 1));
    QVERIFY(refused.end());
    QTRY_COMPARE_WITH_TIMEOUT(state->text(), QStringLiteral("TB, 2048 bytes: refused with 0xe5"), patience);
    QVERIFY(state->part() < 1.0);

    // An empty file.
    m_open->panel.run(QStringLiteral("fail none"));
    Sender empty(&m_open->peer, "TB", QByteArray());
    QVERIFY(empty.start());
    QVERIFY(empty.end());
    QTRY_COMPARE_WITH_TIMEOUT(state->text(), QStringLiteral("TB, 0 bytes: arrived whole"), patience);
}

void InsideTest::commandsAreTyped()
{
    QVERIFY(m_open->click("command"));
    for (const char letter : {'b', 'e', 'a', 't', ' ', '3'})
        QTest::keyClick(m_open->window(), letter);
    QTest::keyClick(m_open->window(), Qt::Key_Return);
    QCOMPARE(m_open->sent(), QList<QByteArray>{hex("42544143 0003 0000")});
    QCOMPARE(m_open->find("last-command")->property("text").toString(), QStringLiteral("beat 3"));
    QCOMPARE(m_open->find("command")->property("text").toString(), QString());
    // A command that shows something does so in the stream.
    QVERIFY(m_open->panel.run(QStringLiteral("module")));
    QTRY_VERIFY_WITH_TIMEOUT(!messages().filter(QStringLiteral("module 127.0.0.1:")).isEmpty(), patience);
    QSignalSpy quit(&m_open->panel, &Panel::quitRequested);
    QVERIFY(m_open->panel.run(QStringLiteral("quit")));
    QCOMPARE(quit.count(), 1);
}

void InsideTest::wrongCommandIsExplained_data()
{
    QTest::addColumn<QString>("problem");
    QTest::newRow("dance") << QStringLiteral("unknown command \"dance\"");
    QTest::newRow("strike snare 128") << QStringLiteral("\"128\" is not a number from 0 to 127");
    QTest::newRow("# nothing") << QStringLiteral("no command");
}

void InsideTest::wrongCommandIsExplained()
{
    QFETCH(QString, problem);
    const int recorded = m_open->panel.recorder()->count();
    QVERIFY(!m_open->panel.run(QString::fromLatin1(QTest::currentDataTag())));
    QCOMPARE(m_open->find("last-answer")->property("text").toString(), problem);
    QCOMPARE(m_open->panel.recorder()->count(), recorded);
    QCOMPARE(m_open->sent(), QList<QByteArray>());
}

int main(int argc, char *argv[])
{
    return runOffscreen<InsideTest>(argc, argv);
}
#include "tst_inside.moc"
