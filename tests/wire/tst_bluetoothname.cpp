#include "control/qconnectqmlplugin.h"
#include "support/datagram.h"
#include "support/enginepeer.h"

#include <QGuiApplication>
#include <QScopedPointer>
#include <QTest>
#include <QTextCodec>

using namespace testsupport;

/// The bluetooth name: up to 32 characters, sent as 32 bytes in the local 8-bit encoding.
class BluetoothNameTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void inTheLocaleOfThisRun_data();
    void inTheLocaleOfThisRun();
    void inGivenEncoding_data();
    void inGivenEncoding();

private:
    QByteArray sentFor(const QString &name);

    EnginePeer m_peer;
    QScopedPointer<QConnectQmlPlugin> m_module;
    QTextCodec *m_codecOfRun = nullptr;
};

void BluetoothNameTest::initTestCase()
{
    m_codecOfRun = QTextCodec::codecForLocale();
    QVERIFY2(m_peer.isOpen(), qPrintable(m_peer.errorString()));
    m_module.reset(new QConnectQmlPlugin);
    QVERIFY(m_peer.connectTo(m_module.data()));
}

void BluetoothNameTest::cleanup()
{
    QTextCodec::setCodecForLocale(m_codecOfRun);
}

QByteArray BluetoothNameTest::sentFor(const QString &name)
{
    m_peer.discardPending();
    m_module->setBluetoothName(name);
    const QByteArray sent = m_peer.next();
    return m_peer.nothingSentBy(m_module.data()) && !m_peer.hasPending() ? sent.toHex(' ') : QByteArray();
}

void BluetoothNameTest::inTheLocaleOfThisRun_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("datagram");
    QTest::newRow("plain letters") << QStringLiteral("E-Drum 7")
                                   << datagram("BN 452D4472756D2037 0000000000000000"
                                               "0000000000000000 0000000000000000");
    QTest::newRow("empty") << QString()
                           << datagram(
                                  "BN 0000000000000000 0000000000000000 0000000000000000 0000000000000000");
}

void BluetoothNameTest::inTheLocaleOfThisRun()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, datagram);
    QCOMPARE(sentFor(name), datagram.toHex(' '));
}

void BluetoothNameTest::inGivenEncoding_data()
{
    QTest::addColumn<QByteArray>("encoding");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("datagram");
    const QString umlaut(QChar(0x00E4));
    const QString drum(QChar(0x9F13));                               // one character, three bytes of UTF-8
    const QString drumPicture = QString::fromUcs4(U"\U0001F941", 1); // two characters, four bytes

    QTest::newRow("UTF-8: one byte more than characters, last byte cut")
        << QByteArray("UTF-8") << QStringLiteral("Schl%1gel").arg(umlaut)
        << datagram("BN 5363686CC3A46765 0000000000000000 0000000000000000 0000000000000000");
    QTest::newRow("UTF-8: cut inside a character")
        << QByteArray("UTF-8") << drum
        << datagram("BN E900000000000000 0000000000000000 0000000000000000 "
                    "0000000000000000");
    QTest::newRow("UTF-8: a character outside the basic plane counts twice")
        << QByteArray("UTF-8") << drumPicture
        << datagram("BN F09F000000000000 0000000000000000 0000000000000000 0000000000000000");
    QTest::newRow("UTF-8: 32 characters of two bytes each")
        << QByteArray("UTF-8") << umlaut.repeated(32)
        << datagram("BN C3A4C3A4C3A4C3A4 C3A4C3A4C3A4C3A4 C3A4C3A4C3A4C3A4 C3A4C3A4C3A4C3A4");
    QTest::newRow("UTF-8: both cuts")
        << QByteArray("UTF-8") << QStringLiteral("e") + umlaut.repeated(40)
        << datagram("BN 65C3A4C3A4C3A4C3 A4C3A4C3A4C3A4C3 A4C3A4C3A4C3A4C3 A4C3A4C3A4C3A4C3");
    QTest::newRow("Latin-1: a byte for each character")
        << QByteArray("ISO-8859-1") << QStringLiteral("Schl%1gel").arg(umlaut)
        << datagram("BN 5363686CE467656C 0000000000000000 0000000000000000 0000000000000000");
    QTest::newRow("GB18030: two bytes, the second cut")
        << QByteArray("GB18030") << drum
        << datagram("BN B900000000000000 0000000000000000 0000000000000000 0000000000000000");
    QTest::newRow("UTF-8: a zero character does not end the name")
        << QByteArray("UTF-8") << QStringLiteral("a") + QChar(0) + QStringLiteral("b")
        << datagram("BN 6100620000000000 0000000000000000 0000000000000000 0000000000000000");
}

void BluetoothNameTest::inGivenEncoding()
{
    QFETCH(QByteArray, encoding);
    QFETCH(QString, name);
    QFETCH(QByteArray, datagram);
    QTextCodec *codec = QTextCodec::codecForName(encoding);
    if (!codec)
        QSKIP("this Qt does not support the encoding");
    QTextCodec::setCodecForLocale(codec);
    QCOMPARE(sentFor(name), datagram.toHex(' '));
}

QTEST_MAIN(BluetoothNameTest)
#include "tst_bluetoothname.moc"
