// The left half of the panel: each control is clicked, and the engine sends its datagram.

#include "openpanel.h"

#include <QElapsedTimer>

class FrontTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanupTestCase();
    void zoneIsStruck_data();
    void zoneIsStruck();
    void heldZoneIsChoked_data();
    void heldZoneIsChoked();
    void heldDrumIsNotChoked();
    void grooveLightsThePads();
    void buttonIsPressedAndReleased_data();
    void buttonIsPressedAndReleased();
    void jackStaysPlugged_data();
    void jackStaysPlugged();
    void potTurns_data();
    void potTurns();
    void pedalMoves();
    void pedalFollowsTheGroove();
    void numberIsSent_data();
    void numberIsSent();
    void drummerStartsAndStops();
    void withoutAModuleNothingIsSent();

private:
    std::unique_ptr<OpenPanel> m_open;
};

void FrontTest::initTestCase()
{
    m_open = std::make_unique<OpenPanel>();
    QVERIFY(m_open->isOpen());
}

void FrontTest::init()
{
    m_open->sent();
}

void FrontTest::cleanupTestCase()
{
    m_open.reset();
}

void FrontTest::zoneIsStruck_data()
{
    QTest::addColumn<int>("note");
    const struct
    {
        const char *name;
        int note;
    } zones[] = {
        {"kick", 36},       {"snare", 38},       {"snare-cross", 37},  {"snare-rim", 40},
        {"tom1", 48},       {"tom1-rim", 50},    {"tom2", 45},         {"tom2-rim", 47},
        {"tom3", 43},       {"tom3-rim", 58},    {"tom4", 41},         {"tom4-rim", 39},
        {"ride", 51},       {"ride-edge", 59},   {"ride-bell", 53},    {"hihat", 42},
        {"hihat-open", 46}, {"hihat-chick", 44}, {"hihat-splash", 21}, {"hihat-edge", 26},
        {"hihat-bell", 19}, {"crash1", 49},      {"crash1-edge", 55},  {"crash1-bell", 17},
        {"crash2", 57},     {"crash2-edge", 52}, {"crash2-bell", 18},  {"aux1", 88},
        {"aux1-edge", 89},  {"aux1-bell", 22},   {"aux2", 90},         {"aux2-edge", 91},
        {"aux2-bell", 23},  {"aux3", 92},        {"aux3-edge", 93},    {"aux3-bell", 24},
        {"aux4", 94},       {"aux4-edge", 95},   {"aux4-bell", 25},
    };
    for (const auto &zone : zones)
        QTest::newRow(zone.name) << zone.note;
}

void FrontTest::zoneIsStruck()
{
    QFETCH(int, note);
    const QString name = QStringLiteral("zone-") + QLatin1String(QTest::currentDataTag());
    // Softly at the left end, hard at the right end.
    int previous = 0;
    for (const double across : {0.0, 0.5, 1.0}) {
        QVERIFY2(m_open->click(name, across), "no such zone in the window");
        const QList<QByteArray> sent = m_open->sent();
        QCOMPARE(sent.size(), 1);
        QCOMPARE(sent.first().left(6), datagram("IM AC 9909"));
        QCOMPARE(int(quint8(sent.first().at(7))), note);
        const int velocity = quint8(sent.first().at(6));
        QVERIFY(velocity > previous);
        previous = velocity;
        if (across == 0.0)
            QVERIFY2(velocity <= 4, qPrintable(QString::number(velocity)));
        else if (across == 0.5)
            QVERIFY2(velocity >= 60 && velocity <= 68, qPrintable(QString::number(velocity)));
        QCOMPARE(m_open->command(), QStringLiteral("strike %1 %2").arg(name.mid(5)).arg(velocity));
    }
    QVERIFY2(previous >= 125, qPrintable(QString::number(previous)));
}

void FrontTest::heldZoneIsChoked_data()
{
    QTest::addColumn<QByteArray>("choke");
    QTest::addColumn<QByteArray>("release");
    QTest::newRow("crash1") << datagram("IM AC A90A 7F31") << datagram("IM AC A90A 0031");
    QTest::newRow("hihat-open") << datagram("IM AC A90A 7F2E") << datagram("IM AC A90A 002E");
    QTest::newRow("aux4-bell") << datagram("IM AC A90A 7F19") << datagram("IM AC A90A 0019");
}

void FrontTest::heldZoneIsChoked()
{
    QFETCH(QByteArray, choke);
    QFETCH(QByteArray, release);
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    const QPoint at = OpenPanel::pointOf(m_open->find(QStringLiteral("zone-") + name));
    QTest::mousePress(m_open->window(), Qt::LeftButton, {}, at);
    QTRY_COMPARE_WITH_TIMEOUT(m_open->command(), QStringLiteral("choke %1 127").arg(name), 30000);
    QList<QByteArray> sent = m_open->sent();
    QCOMPARE(sent.size(), 2);
    QCOMPARE(sent.at(1), choke);
    QTest::mouseRelease(m_open->window(), Qt::LeftButton, {}, at);
    sent = m_open->sent();
    QCOMPARE(sent, QList<QByteArray>{release});
}

// A drum has no edge to hold. The time is longer than that after which a cymbal is choked.
void FrontTest::heldDrumIsNotChoked()
{
    const QPoint at = OpenPanel::pointOf(m_open->find("zone-snare"));
    QElapsedTimer held;
    held.start();
    QTest::mousePress(m_open->window(), Qt::LeftButton, {}, at);
    QTRY_VERIFY(held.elapsed() > 700);
    QTest::mouseRelease(m_open->window(), Qt::LeftButton, {}, at);
    QCOMPARE(m_open->sent().size(), 1);
}

void FrontTest::grooveLightsThePads()
{
    QQuickItem *snare = m_open->find("zone-snare");
    QTRY_COMPARE(snare->property("flash").toDouble(), 0.0);
    QTRY_COMPARE(m_open->find("zone-snare-rim")->property("flash").toDouble(), 0.0);
    m_open->panel.engine()->strike(38, 127);
    QVERIFY(snare->property("flash").toDouble() > 0.5);
    QCOMPARE(m_open->find("zone-snare-rim")->property("flash").toDouble(), 0.0);
}

void FrontTest::buttonIsPressedAndReleased_data()
{
    QTest::addColumn<QByteArray>("pressed");
    QTest::addColumn<QByteArray>("released");
    QTest::newRow("power") << datagram("SW AC 5057 0001") << datagram("SW AC 5057 0000");
    QTest::newRow("home") << datagram("SW AC 484D 0001") << datagram("SW AC 484D 0000");
    QTest::newRow("foot1") << datagram("SW AC 4631 0001") << datagram("SW AC 4631 0000");
    QTest::newRow("foot2") << datagram("SW AC 4632 0001") << datagram("SW AC 4632 0000");
    QTest::newRow("aux3") << datagram("SW AC 4133 0001") << datagram("SW AC 4133 0000");
    QTest::newRow("aux4") << datagram("SW AC 4134 0001") << datagram("SW AC 4134 0000");
}

void FrontTest::buttonIsPressedAndReleased()
{
    QFETCH(QByteArray, pressed);
    QFETCH(QByteArray, released);
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    const QPoint at = OpenPanel::pointOf(m_open->find(QStringLiteral("switch-") + name));
    QTest::mousePress(m_open->window(), Qt::LeftButton, {}, at);
    QCOMPARE(m_open->sent(), QList<QByteArray>{pressed});
    QCOMPARE(m_open->command(), QStringLiteral("switch %1 1").arg(name));
    QTest::mouseRelease(m_open->window(), Qt::LeftButton, {}, at);
    QCOMPARE(m_open->sent(), QList<QByteArray>{released});
    QCOMPARE(m_open->command(), QStringLiteral("switch %1 0").arg(name));
}

void FrontTest::jackStaysPlugged_data()
{
    QTest::addColumn<QByteArray>("plugged");
    QTest::addColumn<QByteArray>("free");
    QTest::newRow("headphone") << datagram("SW AC 4850 0001") << datagram("SW AC 4850 0000");
    QTest::newRow("mixin") << datagram("SW AC 4D49 0001") << datagram("SW AC 4D49 0000");
}

void FrontTest::jackStaysPlugged()
{
    QFETCH(QByteArray, plugged);
    QFETCH(QByteArray, free);
    const QString name = QStringLiteral("switch-") + QLatin1String(QTest::currentDataTag());
    QVERIFY(m_open->click(name));
    QCOMPARE(m_open->sent(), QList<QByteArray>{plugged});
    QVERIFY(m_open->click(name));
    QCOMPARE(m_open->sent(), QList<QByteArray>{free});
}

void FrontTest::potTurns_data()
{
    QTest::addColumn<QByteArray>("up");
    QTest::addColumn<QByteArray>("down");
    QTest::newRow("0") << datagram("CO AC 0000 0001") << datagram("CO AC 0000 0000");
    QTest::newRow("1") << datagram("CO AC 0001 0001") << datagram("CO AC 0001 0000");
    QTest::newRow("2") << datagram("CO AC 0002 0001") << datagram("CO AC 0002 0000");
    QTest::newRow("3") << datagram("CO AC 0003 0001") << datagram("CO AC 0003 0000");
}

void FrontTest::potTurns()
{
    QFETCH(QByteArray, up);
    QFETCH(QByteArray, down);
    QQuickItem *pot = m_open->find(QStringLiteral("pot-") + QLatin1String(QTest::currentDataTag()));
    QVERIFY(pot != nullptr);
    const auto clickPart = [this, pot](const char *part) {
        const QQuickItem *item = OpenPanel::findIn(pot, QString::fromLatin1(part));
        QTest::mouseClick(m_open->window(), Qt::LeftButton, {}, OpenPanel::pointOf(item));
    };
    clickPart("more");
    QCOMPARE(m_open->sent(), QList<QByteArray>{up});
    QVERIFY(m_open->command().endsWith(QLatin1String(" +")));
    clickPart("less");
    QCOMPARE(m_open->sent(), QList<QByteArray>{down});
    // The wheel turns in both directions, too.
    const QPoint at = OpenPanel::pointOf(pot);
    for (const int turn : {120, -120}) {
        QWheelEvent event(at, m_open->window()->mapToGlobal(at), {}, QPoint(0, turn), Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(m_open->window(), &event);
        QCOMPARE(m_open->sent(), QList<QByteArray>{turn > 0 ? up : down});
    }
}

void FrontTest::pedalMoves()
{
    QVERIFY(m_open->click(QStringLiteral("pedal"), 1.0));
    QCOMPARE(m_open->sent(), QList<QByteArray>{datagram("IM AC B90B 7F04")});
    QCOMPARE(m_open->command(), QStringLiteral("hihat 127"));
    QVERIFY(m_open->click(QStringLiteral("pedal"), 0.0));
    QCOMPARE(m_open->sent(), QList<QByteArray>{datagram("IM AC B90B 0004")});
}

void FrontTest::pedalFollowsTheGroove()
{
    m_open->panel.engine()->moveHiHat(40);
    QCOMPARE(m_open->find("pedal")->property("value").toInt(), 40);
    // Showing the position sends nothing more.
    QCOMPARE(m_open->sent(), QList<QByteArray>{datagram("IM AC B90B 2804")});
}

void FrontTest::numberIsSent_data()
{
    QTest::addColumn<QByteArray>("first");
    QTest::addColumn<QByteArray>("second");
    QTest::newRow("tempo") << datagram("TM AC 0060 0000") << datagram("TM AC 0061 0000");
    QTest::newRow("program") << datagram("IM AC C90C 0060") << datagram("IM AC C90C 0061");
}

void FrontTest::numberIsSent()
{
    QFETCH(QByteArray, first);
    QFETCH(QByteArray, second);
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    QVERIFY(m_open->type(name + QStringLiteral("-number"), "96"));
    QCOMPARE(m_open->sent(), QList<QByteArray>());
    QTest::keyClick(m_open->window(), Qt::Key_Return);
    QCOMPARE(m_open->sent(), QList<QByteArray>{first});
    QVERIFY(m_open->type(name + QStringLiteral("-number"), "97"));
    QVERIFY(m_open->click(name + QStringLiteral("-send")));
    QCOMPARE(m_open->sent(), QList<QByteArray>{second});
    QCOMPARE(m_open->command(), name + QStringLiteral(" 97"));
}

void FrontTest::drummerStartsAndStops()
{
    QVERIFY(m_open->click("groove"));
    QVERIFY(m_open->panel.isGroovePlaying());
    QTRY_VERIFY_WITH_TIMEOUT(m_open->panel.engine()->counters().padHits > 2, 30000);
    QVERIFY(m_open->click("groove"));
    QVERIFY(!m_open->panel.isGroovePlaying());
    QCOMPARE(m_open->command(), QStringLiteral("groove off"));
}

void FrontTest::withoutAModuleNothingIsSent()
{
    Panel panel;
    QVERIFY(panel.start(QHostAddress(QStringLiteral(PANEL_ADDRESS)), 0, false));
    QVERIFY(!panel.run(QStringLiteral("strike snare 100")));
    QCOMPARE(panel.lastAnswer(), QStringLiteral("not sent: no module is known yet"));
    QVERIFY(panel.lastFailed());
    QCOMPARE(panel.recorder()->count(), 0);
}

int main(int argc, char *argv[])
{
    return runOffscreen<FrontTest>(argc, argv);
}
#include "tst_front.moc"
