// The panel without a mouse.

#include "openpanel.h"

#include <QSet>

class KeyboardTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void tabKeyReachesEveryControl_data();
    void tabKeyReachesEveryControl();
    void arrowsReachEveryZone();
    void digitsSetTheVelocity();
    void heldKeyChokes();
    void leavingThePadsEndsAChoke();
    void controlsWorkByKey_data();
    void controlsWorkByKey();
    void buttonIsPressedAndReleased();
    void pagesOpenByKey();
    void listScrolls();

private:
    bool focusOn(const QString &name)
    {
        QQuickItem *item = m_open->find(name);
        if (item == nullptr)
            return false;
        item->forceActiveFocus(Qt::TabFocusReason);
        return item->hasActiveFocus();
    }

    std::unique_ptr<OpenPanel> m_open;
};

void KeyboardTest::init()
{
    m_open = std::make_unique<OpenPanel>();
    QVERIFY(m_open->isOpen());
}

void KeyboardTest::cleanup()
{
    m_open.reset();
}

void KeyboardTest::tabKeyReachesEveryControl_data()
{
    QTest::addColumn<QStringList>("ofPage");
    const auto row = [](const char *page, const QString &names) {
        QTest::newRow(page) << names.split(QLatin1Char(' '));
    };
    row("messages",
        QStringLiteral("messages-search messages-pause messages-clear messages-sent messages-received "
                       "messages-meters messages-data messages-list"));
    row("parameters", QStringLiteral("parameters-search parameters-list"));
    row("meters", QStringLiteral("meters-auto meters-reports meter-0 meter-17 section-master section-monitor "
                                 "section-headphone section-pad compressor-0 compressor-5"));
    row("answers", QStringLiteral("version-zelta-major version-zelta-minor version-zelta-set hihat-raw-value "
                                  "hihat-raw-set flash-high flash-low flash-set"));
    row("failures", QStringLiteral("failure-resend failure-number-resend failure-vanish failure-delay-once "
                                   "failure-number-delay-once"));
}

void KeyboardTest::tabKeyReachesEveryControl()
{
    QFETCH(QStringList, ofPage);
    QVERIFY(m_open->click(QStringLiteral("tab-") + QLatin1String(QTest::currentDataTag())));
    QStringList expected = {
        QStringLiteral("groove"),         QStringLiteral("pads"),         QStringLiteral("pedal"),
        QStringLiteral("switch-power"),   QStringLiteral("switch-mixin"), QStringLiteral("pot-0"),
        QStringLiteral("pot-3"),          QStringLiteral("tempo-number"), QStringLiteral("tempo-send"),
        QStringLiteral("program-number"), QStringLiteral("program-send"), QStringLiteral("tab-messages"),
        QStringLiteral("tab-parameters"), QStringLiteral("tab-failures"), QStringLiteral("tab-meters"),
        QStringLiteral("tab-answers"),    QStringLiteral("command"),      QStringLiteral("scenario-path"),
        QStringLiteral("scenario-save"),  QStringLiteral("scenario-new")};
    expected += ofPage;

    // Names of the items with the focus and of the items around them, because a box gives the focus to its
    // text.
    QSet<QString> reached;
    const QQuickItem *first = m_open->window()->activeFocusItem();
    QImage before = m_open->picture();
    QVERIFY(!before.isNull());
    for (int i = 0; i < 200; ++i) {
        QTest::keyClick(m_open->window(), Qt::Key_Tab);
        const QQuickItem *focused = m_open->window()->activeFocusItem();
        QVERIFY(focused != nullptr);
        for (const QQuickItem *item = focused; item != nullptr; item = item->parentItem())
            reached.insert(item->objectName());
        // The picture shows where the focus is.
        QVERIFY2(QTest::qWaitFor([this, &before] { return m_open->picture() != before; }, 30000),
                 qPrintable(focused->objectName()));
        before = m_open->picture();
        if (focused == first)
            break;
    }
    QCOMPARE(m_open->window()->activeFocusItem(), first);
    for (const QString &name : qAsConst(expected))
        QVERIFY2(reached.contains(name), qPrintable(name));
    QCOMPARE(m_open->sent(), QList<QByteArray>());
}

// Walks through the grid with the arrow keys and strikes what is current.
void KeyboardTest::arrowsReachEveryZone()
{
    QVERIFY(focusOn(QStringLiteral("pads")));
    QQuickItem *pads = m_open->find("pads");
    QSet<QString> reached;
    QStringList open = {pads->property("current").toString()};
    while (!open.isEmpty()) {
        const QString from = open.takeFirst();
        if (reached.contains(from))
            continue;
        reached.insert(from);
        for (const auto key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down}) {
            pads->setProperty("current", from);
            QTest::keyClick(m_open->window(), key);
            open.append(pads->property("current").toString());
        }
    }
    QCOMPARE(reached.size(), 39);

    pads->setProperty("current", QStringLiteral("snare"));
    QTest::keyClick(m_open->window(), Qt::Key_Space);
    QCOMPARE(m_open->sent(), QList<QByteArray>{datagram("IM AC 9909 6426")});
    QTest::keyClick(m_open->window(), Qt::Key_Down);
    QTest::keyClick(m_open->window(), Qt::Key_Return);
    QCOMPARE(m_open->sent(), QList<QByteArray>{datagram("IM AC 9909 6425")});
    QTest::keyClick(m_open->window(), Qt::Key_Down);
    QTest::keyClick(m_open->window(), Qt::Key_Down);
    QTest::keyClick(m_open->window(), Qt::Key_Space);
    QCOMPARE(m_open->sent(), QList<QByteArray>{datagram("IM AC 9909 6424")});
}

void KeyboardTest::digitsSetTheVelocity()
{
    QVERIFY(focusOn(QStringLiteral("pads")));
    QTest::keyClick(m_open->window(), Qt::Key_1);
    QTest::keyClick(m_open->window(), Qt::Key_5);
    QTest::keyClick(m_open->window(), Qt::Key_9);
    const QList<QByteArray> expected = {datagram("IM AC 9909 0E26"), datagram("IM AC 9909 4726"),
                                        datagram("IM AC 9909 7F26")};
    QCOMPARE(m_open->sent(), expected);
}

void KeyboardTest::heldKeyChokes()
{
    QVERIFY(focusOn(QStringLiteral("pads")));
    m_open->find("pads")->setProperty("current", QStringLiteral("ride-edge"));
    QTest::keyPress(m_open->window(), Qt::Key_Space);
    QTRY_COMPARE_WITH_TIMEOUT(m_open->command(), QStringLiteral("choke ride-edge 127"), 30000);
    QTest::keyRelease(m_open->window(), Qt::Key_Space);
    const QList<QByteArray> expected = {datagram("IM AC 9909 643B"), datagram("IM AC A90A 7F3B"),
                                        datagram("IM AC A90A 003B")};
    QCOMPARE(m_open->sent(), expected);
}

void KeyboardTest::leavingThePadsEndsAChoke()
{
    QVERIFY(focusOn(QStringLiteral("pads")));
    m_open->find("pads")->setProperty("current", QStringLiteral("crash1"));
    QTest::keyPress(m_open->window(), Qt::Key_Space);
    QTRY_COMPARE_WITH_TIMEOUT(m_open->command(), QStringLiteral("choke crash1 127"), 30000);
    QTest::keyClick(m_open->window(), Qt::Key_Tab);
    QCOMPARE(m_open->command(), QStringLiteral("choke crash1 0"));
}

void KeyboardTest::controlsWorkByKey_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QByteArray>("datagram");
    const auto row = [](const char *name, int key, const char *bytes) {
        QTest::newRow(name) << key << datagram(bytes);
    };
    row("pot-0", Qt::Key_Up, "CO AC 0000 0001");
    row("pot-3", Qt::Key_Left, "CO AC 0003 0000");
    row("pedal", Qt::Key_Right, "IM AC B90B 0804");
    row("switch-headphone", Qt::Key_Space, "SW AC 4850 0001");
    row("switch-mixin", Qt::Key_Return, "SW AC 4D49 0001");
    row("tempo-number", Qt::Key_Return, "TM AC 0078 0000");
    row("tempo-send", Qt::Key_Space, "TM AC 0078 0000");
    row("program-send", Qt::Key_Return, "IM AC C90C 0000");
}

void KeyboardTest::controlsWorkByKey()
{
    QFETCH(int, key);
    QFETCH(QByteArray, datagram);
    QVERIFY(focusOn(QString::fromLatin1(QTest::currentDataTag())));
    QTest::keyClick(m_open->window(), Qt::Key(key));
    QCOMPARE(m_open->sent(), QList<QByteArray>{datagram});
}

void KeyboardTest::buttonIsPressedAndReleased()
{
    QVERIFY(focusOn(QStringLiteral("switch-foot1")));
    QTest::keyPress(m_open->window(), Qt::Key_Space);
    QCOMPARE(m_open->sent(), QList<QByteArray>{datagram("SW AC 4631 0001")});
    QTest::keyRelease(m_open->window(), Qt::Key_Space);
    QCOMPARE(m_open->sent(), QList<QByteArray>{datagram("SW AC 4631 0000")});
}

void KeyboardTest::pagesOpenByKey()
{
    QVERIFY(focusOn(QStringLiteral("tab-failures")));
    QTest::keyClick(m_open->window(), Qt::Key_Return);
    QCOMPARE(m_open->window()->property("page").toString(), QStringLiteral("failures"));
    // Control and a digit open a page from anywhere.
    QTest::keyClick(m_open->window(), Qt::Key_4, Qt::ControlModifier);
    QCOMPARE(m_open->window()->property("page").toString(), QStringLiteral("meters"));
    QTest::keyClick(m_open->window(), Qt::Key_L, Qt::ControlModifier);
    QVERIFY(m_open->find("command")->hasActiveFocus());
}

void KeyboardTest::listScrolls()
{
    m_open->panel.stream()->clear();
    for (int i = 0; i < 200; ++i)
        m_open->panel.stream()->add(MessageStream::Kind::Note, QString::number(i));
    QQuickItem *list = m_open->find("messages-list");
    QTRY_COMPARE_WITH_TIMEOUT(list->property("count").toInt(), 200, 30000);
    QVERIFY(focusOn(QStringLiteral("messages-list")));
    QVERIFY(m_open->waitForFrame());
    const double top = list->property("contentY").toDouble();
    QTest::keyClick(m_open->window(), Qt::Key_PageDown);
    QVERIFY(list->property("contentY").toDouble() > top + 100);
    QVERIFY(!list->property("following").toBool());
    QTest::keyClick(m_open->window(), Qt::Key_Home);
    QVERIFY(list->property("following").toBool());
    QVERIFY(list->property("atYBeginning").toBool());
}

int main(int argc, char *argv[])
{
    return runOffscreen<KeyboardTest>(argc, argv);
}
#include "tst_keyboard.moc"
