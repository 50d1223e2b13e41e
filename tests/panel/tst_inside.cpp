// The pages of the panel with failure modes, meters, answers and a real kit, and the state of a transfer.

#include "openpanel.h"
#include "sender.h"

#include "simulator/failures.h"

#include <QFile>
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

    void failureModeSwitches_data();
    void failureModeSwitches();
    void failureModeActsWithinATransfer();
    void allFailureModesSwitchOff();
    void numberOfAnActiveModeChanges();
    void numberFollowsTypedCommands();
    void outputMetersAreSetByHand_data();
    void outputMetersAreSetByHand();
    void compressorMetersAreSetByHand_data();
    void compressorMetersAreSetByHand();
    void metersFollowTheHitsAgain();
    void answersAreSet_data();
    void answersAreSet();
    void answersAreShown_data();
    void answersAreShown();
    void realKitPlays();
    void kitThatCannotBeReadIsExplained();
    void transferIsShown();

private:
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
}

void InsideTest::cleanupTestCase()
{
    m_open.reset();
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
    QCOMPARE(m_open->sent(), QList<QByteArray>{datagram("DC AC 0009 00BE")});
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
    QCOMPARE(m_open->sent(), QList<QByteArray>{datagram("DE AC 0000 0000")});
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

void InsideTest::numberFollowsTypedCommands()
{
    QVERIFY(showFailure(0));
    const QQuickItem *box = m_open->find("failure-number-resend");
    QVERIFY(box != nullptr);
    const auto shown = [box] {
        return box->property("value").toInt();
    };
    QVERIFY(m_open->type(QStringLiteral("failure-number-resend"), "21"));
    QVERIFY(m_open->click("failure-resend"));
    QCOMPARE(m_open->command(), QStringLiteral("fail resend=21"));
    QCOMPARE(shown(), 21);
    QVERIFY(m_open->panel.run(QStringLiteral("fail resend off")));
    QVERIFY(m_open->panel.run(QStringLiteral("fail resend=9")));
    QCOMPARE(shown(), 9);
    const QQuickItem *digits =
        OpenPanel::findIn(m_open->find("failure-number-resend"), QStringLiteral("digits"));
    QCOMPARE(digits->property("text").toString(), QStringLiteral("9"));
    // A step of the box, and another command.
    QVERIFY(m_open->click(QStringLiteral("failure-number-resend"), 0.95));
    QCOMPARE(m_open->command(), QStringLiteral("fail resend=10"));
    QVERIFY(m_open->panel.run(QStringLiteral("fail resend off")));
    QVERIFY(m_open->panel.run(QStringLiteral("fail resend=4")));
    QCOMPARE(shown(), 4);
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
    QTest::newRow("version-zelta") << version << datagram("VN 0000") << datagram("VN AC 0007 0007");
    QTest::newRow("version-trigger") << version << datagram("TV 0000") << datagram("TV AC 0007 0007");
    QTest::newRow("version-soundbank") << version << datagram("SN 0000") << datagram("SN AC 0007 0007");
    QTest::newRow("version-triggerbank") << version << datagram("TN 0000") << datagram("TN AC 0007 0007");
    QTest::newRow("hihat-raw") << QStringList{QStringLiteral("value")} << datagram("HL 0000")
                               << datagram("HL AC 0007 0000");
    QTest::newRow("flash") << QStringList{QStringLiteral("high"), QStringLiteral("low")}
                           << datagram("IM 0003 0BB9633D 0BB9620F 0BB90600") << datagram("FR AC 0007 0007");
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

void InsideTest::answersAreShown_data()
{
    QTest::addColumn<QStringList>("boxes");
    QTest::addColumn<QVector<int>>("usual");
    QTest::addColumn<QString>("command");
    QTest::addColumn<QVector<int>>("changed");
    QTest::addColumn<QByteArray>("query");
    QTest::addColumn<QByteArray>("usualAnswer");
    QTest::addColumn<QByteArray>("changedAnswer");
    const QStringList version = {QStringLiteral("major"), QStringLiteral("minor")};
    QTest::newRow("version-zelta") << version << QVector<int>{1, 0} << QStringLiteral("version zelta 2 1")
                                   << QVector<int>{2, 1} << datagram("VN 0000") << datagram("VN AC 0001 0000")
                                   << datagram("VN AC 0002 0001");
    QTest::newRow("version-trigger") << version << QVector<int>{0, 100}
                                     << QStringLiteral("version trigger 0 103") << QVector<int>{0, 103}
                                     << datagram("TV 0000") << datagram("TV AC 0000 0064")
                                     << datagram("TV AC 0000 0067");
    QTest::newRow("version-soundbank")
        << version << QVector<int>{1, 0} << QStringLiteral("version soundbank 65535 2")
        << QVector<int>{65535, 2} << datagram("SN 0000") << datagram("SN AC 0001 0000")
        << datagram("SN AC FFFF 0002");
    QTest::newRow("version-triggerbank")
        << version << QVector<int>{0, 100} << QStringLiteral("version triggerbank 3 0") << QVector<int>{3, 0}
        << datagram("TN 0000") << datagram("TN AC 0000 0064") << datagram("TN AC 0003 0000");
    QTest::newRow("hihat-raw") << QStringList{QStringLiteral("value")} << QVector<int>{512}
                               << QStringLiteral("hihat-raw 700") << QVector<int>{700} << datagram("HL 0000")
                               << datagram("HL AC 0200 0000") << datagram("HL AC 02BC 0000");
    QTest::newRow("flash") << QStringList{QStringLiteral("high"), QStringLiteral("low")}
                           << QVector<int>{512, 256} << QStringLiteral("flash 9 8") << QVector<int>{9, 8}
                           << datagram("IM 0003 0BB9633D 0BB9620F 0BB90600") << datagram("FR AC 0200 0100")
                           << datagram("FR AC 0009 0008");
}

// The boxes show what the engine answers, so a touch of the button changes nothing.
void InsideTest::answersAreShown()
{
    QFETCH(QStringList, boxes);
    QFETCH(QVector<int>, usual);
    QFETCH(QString, command);
    QFETCH(QVector<int>, changed);
    QFETCH(QByteArray, query);
    QFETCH(QByteArray, usualAnswer);
    QFETCH(QByteArray, changedAnswer);
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    // A new engine.
    m_open = std::make_unique<OpenPanel>();
    QVERIFY(m_open->isOpen());
    QVERIFY(m_open->click("tab-answers"));
    const auto shown = [&] {
        QVector<int> numbers;
        for (const QString &box : qAsConst(boxes)) {
            QQuickItem *item = m_open->find(name + QLatin1Char('-') + box);
            if (item == nullptr)
                continue;
            numbers.append(item->property("value").toInt());
            const QQuickItem *digits = OpenPanel::findIn(item, QStringLiteral("digits"));
            if (digits->property("text").toString() != QString::number(numbers.constLast()))
                numbers.append(-1);
        }
        return numbers;
    };
    QCOMPARE(shown(), usual);
    QVERIFY(m_open->click(name + QStringLiteral("-set")));
    m_open->sent();
    QVERIFY(m_open->peer.send(query));
    QCOMPARE(m_open->sent(), QList<QByteArray>{usualAnswer});

    QVERIFY(m_open->panel.run(command));
    QCOMPARE(shown(), changed);
    QVERIFY(m_open->click(name + QStringLiteral("-set")));
    QCOMPARE(m_open->command(), command);
    m_open->sent();
    QVERIFY(m_open->peer.send(query));
    QCOMPARE(m_open->sent(), QList<QByteArray>{changedAnswer});

    // What is typed stays while something else happens.
    QVERIFY(m_open->type(name + QLatin1Char('-') + boxes.first(), "77"));
    QVERIFY(m_open->panel.run(QStringLiteral("strike snare")));
    QVERIFY(m_open->click(name + QStringLiteral("-set")));
    changed.first() = 77;
    QCOMPARE(shown(), changed);
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
    QCOMPARE(sent, (QList<QByteArray>{datagram("IM AC 9909 6426"), datagram("IM AC 9909 5024")}));
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

int main(int argc, char *argv[])
{
    return runOffscreen<InsideTest>(argc, argv);
}
#include "tst_inside.moc"
