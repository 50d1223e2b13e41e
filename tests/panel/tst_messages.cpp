// The stream of messages, the table of parameters and the command line of the panel.

#include "openpanel.h"

#include <QSignalSpy>

namespace {

constexpr int patience = 30000;

} // namespace

class MessagesTest : public QObject
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

    std::unique_ptr<OpenPanel> m_open;
};

void MessagesTest::initTestCase()
{
    m_open = std::make_unique<OpenPanel>();
    QVERIFY(m_open->isOpen());
}

void MessagesTest::init()
{
    m_open->sent();
    m_open->panel.stream()->setPaused(false);
    m_open->panel.stream()->clear();
}

void MessagesTest::cleanupTestCase()
{
    m_open.reset();
}

void MessagesTest::streamShowsBothDirections_data()
{
    QTest::addColumn<bool>("fromModule");
    QTest::addColumn<QByteArray>("datagram");
    QTest::addColumn<QString>("words");
    const auto in = [](const char *bytes, const char *words) {
        QTest::newRow(words) << true << datagram(bytes) << QString::fromLatin1(words);
    };
    const auto out = [](const char *bytes, const char *words) {
        QTest::newRow(words) << false << datagram(bytes) << QString::fromLatin1(words);
    };
    in("IM 0003 0BB96338 0BB96207 0BB90664", "mixer master out level 100");
    in("TN 0000", "query TN: trigger bank version");
    out("IM AC 9909 7F26", "pad 1 snare zone 0 velocity 127");
    out("IM AC 9909 0163", "note 99 velocity 1, no pad");
    out("IM AC A90A 7F31", "pad 8 crash1 pressure 127");
    out("IM AC B90B 4004", "controller 4 value 64");
    out("IM AC B90B 0107", "controller 7 value 1");
    out("IM AC C90C 0005", "program change 5");
    out("IM AC F705 0000", "sysex F7");
    out("IM AC 800B 0001", "MIDI event 80 0B 00 01, which the module ignores");
    out("BT AC 0002 0000", "beat 2");
    out("TM AC 0078 0000", "tempo 120");
    out("SW AC 4850 0001", "switch headphone 1");
    out("SW AC 5A5A 0001", "switch ZZ 1");
    out("CO AC 0003 0001", "pot 3 +");
    out("CO AC 0000 0000", "pot 0 -");
    out("FR AC 0200 0100", "flash size 33554432, total 67109376");
    out("VN AC 0001 0005", "reply VN: sound engine version 1.5");
    out("TV AC 0002 0000", "reply TV: trigger board version 2.0");
    out("SN AC 0001 0002", "reply SN: sound bank version 1.2");
    out("TN AC 0003 0004", "reply TN: trigger bank version 3.4");
    out("HL AC 0209 0000", "reply HL: hi-hat raw value 521");
    out("IS AC 0003 0001", "event IS 3 1");
    out("IW AC 0004 0000", "event IW 4 0");
    out("DC AC 0005 00BE", "transfer resend from packet 5");
    out("DC AC 0000 01BE", "transfer resend from packet 65536");
    out("DC AC 0005 00E1", "transfer refused, memory full, code 0xe1");
    out("DE AC 0000 0001", "transfer end acknowledged, status 0x0001");
    out("AB AC 0001 0002", "event AB 1 2");
    out("0102", "unreadable datagram: 2 bytes of no known form");
}

void MessagesTest::streamShowsBothDirections()
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

void MessagesTest::streamIsFiltered()
{
    m_open->panel.engine()->strike(38, 100);
    QVERIFY(m_open->peer.send("IM 0003 0BB96338 0BB96207 0BB90664"));
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

void MessagesTest::streamWaitsWhilePaused()
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

void MessagesTest::streamIsBounded()
{
    for (int i = 0; i < 3; ++i) {
        for (int k = 0; k < MessageStream::capacity; ++k)
            m_open->panel.stream()->add(MessageStream::Kind::Note, QString::number(i));
        QTRY_VERIFY_WITH_TIMEOUT(messages().value(0) == QString::number(i), patience);
    }
    QCOMPARE(m_open->panel.stream()->rowCount(), int(MessageStream::capacity));
}

void MessagesTest::metersAndFileDataAreHidden()
{
    QVERIFY(m_open->click("tab-messages"));
    const QByteArray meters = "DR" + QByteArray(36, '\0');
    const QByteArray data = datagram("DC TB 00000000 0001 0000");
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

void MessagesTest::parametersShowTheLatestFirst()
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
    QVERIFY(m_open->peer.send("IM 0003 0BB96338 0BB96207 0BB90664"));
    QTRY_COMPARE_WITH_TIMEOUT(row(0), level, patience);
    QVERIFY(m_open->peer.send("IM 0004 0BB96337 0BB96264 0BB92640 0BB90632"));
    QTRY_COMPARE_WITH_TIMEOUT(row(0), tempo, patience);
    QCOMPARE(row(1), level);
    QVERIFY(m_open->peer.send("IM 0003 0BB9637E 0BB96222 0BB90605"));
    QTRY_COMPARE_WITH_TIMEOUT(row(0), unknown, patience);
    // A number that is set again moves to the top.
    QVERIFY(m_open->peer.send("IM 0003 0BB96338 0BB96207 0BB90601"));
    QTRY_COMPARE_WITH_TIMEOUT(row(0).constLast(), QStringLiteral("1"), patience);
    QCOMPARE(row(0).constFirst(), level.first());
    QCOMPARE(row(1), unknown);
    QCOMPARE(row(2), tempo);

    // Many at once, in two packets of the same numbers.
    const int before = m_open->panel.parameters()->rowCount();
    for (const int value : {1, 2}) {
        for (int note = 0; note < 100; ++note) {
            QByteArray datagram = testsupport::datagram("IM 0003 0BB96321 0BB96200 0BB90600");
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

void MessagesTest::parametersAreSearched()
{
    QVERIFY(m_open->peer.send("IM 0003 0BB96338 0BB96207 0BB90664"));
    QVERIFY(m_open->peer.send("IM 0003 0BB96303 0BB96200 0BB90611"));
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

void MessagesTest::commandsAreTyped()
{
    QVERIFY(m_open->click("command"));
    for (const char letter : {'b', 'e', 'a', 't', ' ', '3'})
        QTest::keyClick(m_open->window(), letter);
    QTest::keyClick(m_open->window(), Qt::Key_Return);
    QCOMPARE(m_open->sent(), QList<QByteArray>{datagram("BT AC 0003 0000")});
    QCOMPARE(m_open->find("last-command")->property("text").toString(), QStringLiteral("beat 3"));
    QCOMPARE(m_open->find("command")->property("text").toString(), QString());
    // A command that shows something does so in the stream.
    QVERIFY(m_open->panel.run(QStringLiteral("module")));
    QTRY_VERIFY_WITH_TIMEOUT(!messages().filter(QStringLiteral("module 127.0.0.1:")).isEmpty(), patience);
    QSignalSpy quit(&m_open->panel, &Panel::quitRequested);
    QVERIFY(m_open->panel.run(QStringLiteral("quit")));
    QCOMPARE(quit.count(), 1);
}

void MessagesTest::wrongCommandIsExplained_data()
{
    QTest::addColumn<QString>("problem");
    QTest::newRow("dance") << QStringLiteral("unknown command \"dance\"");
    QTest::newRow("strike snare 128") << QStringLiteral("\"128\" is not a number from 0 to 127");
    QTest::newRow("# nothing") << QStringLiteral("no command");
}

void MessagesTest::wrongCommandIsExplained()
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
    return runOffscreen<MessagesTest>(argc, argv);
}
#include "tst_messages.moc"
