// Signals and slots of the controllers, as other objects use them.

#include "support/connectedmodule.h"
#include "support/datagram.h"
#include "support/texts.h"

#include <QMetaMethod>
#include <QTest>

using namespace testsupport;

namespace {

/// Signals and slots that a class declares itself, in the order of declaration.
QStringList ownMethods(const QMetaObject &type)
{
    QStringList methods;
    for (int i = type.methodOffset(); i < type.methodCount(); ++i)
        methods.append(QString::fromLatin1(type.method(i).methodSignature()));
    return methods;
}

template<class Controller>
void addRow(const char *name, const QStringList &methods = {})
{
    QTest::newRow(name) << &Controller::staticMetaObject << methods;
}

} // namespace

Q_DECLARE_METATYPE(const QMetaObject *)

class ControllersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void metaObject_data();
    void metaObject();
    void padsTakeMidiEventsOnly();
    void potsTakePotEventsOnly();
    void potsSignalThroughTheControlObject();
    void padsSignalBeforeTheControlObjectDoes();
};

// QML does not use controllers. They declare only the members to which the control object is connected.
void ControllersTest::metaObject_data()
{
    QTest::addColumn<const QMetaObject *>("type");
    QTest::addColumn<QStringList>("methods");
    addRow<qconnectVolume>("qconnectVolume");
    addRow<qconnectmetronome>("qconnectmetronome");
    addRow<qconnectmaster_eq>("qconnectmaster_eq");
    addRow<qconnecthead_eq>("qconnecthead_eq");
    addRow<qconnectmonitor_eq>("qconnectmonitor_eq");
    addRow<qconnectpad_eq>("qconnectpad_eq");
    addRow<qconnectmaster_cp>("qconnectmaster_cp");
    addRow<qconnecthead_cp>("qconnecthead_cp");
    addRow<qconnectmonitor_cp>("qconnectmonitor_cp");
    addRow<qconnectpad_cp>("qconnectpad_cp");
    addRow<qconnectpad_instrument>("qconnectpad_instrument");
    addRow<qconnectpad_extra>("qconnectpad_extra");
    addRow<qconnectpad_mixer>("qconnectpad_mixer");
    addRow<qconnecteffects>("qconnecteffects");
    addRow<qconnecttrigger>("qconnecttrigger");
    addRow<qconnectmidi>("qconnectmidi");
    addRow<qconnectled>("qconnectled");
    addRow<qconnectswitches>("qconnectswitches");
    addRow<qconnectprogram>("qconnectprogram");
    addRow<qconnectpad>(
        "qconnectpad", texts({"noteReceived(uint)", "afterTouchReceived(uint)", "positionReceived(uint,uint)",
                              "programReceived(uchar)", "handleNote(ushort,ushort,ushort)"}));
    addRow<qconnectpot>("qconnectpot",
                        texts({"pot0Inc()", "pot1Inc()", "pot2Inc()", "pot3Inc()", "pot0Dec()", "pot1Dec()",
                               "pot2Dec()", "pot3Dec()", "handle(ushort,ushort,ushort)"}));
}

void ControllersTest::metaObject()
{
    QFETCH(const QMetaObject *, type);
    QFETCH(const QStringList, methods);
    QCOMPARE(type->className(), QTest::currentDataTag());
    QVERIFY(type->inherits(&QQuickItem::staticMetaObject));
    QCOMPARE(ownMethods(*type), methods);
    // The classes between a controller and QQuickItem declare no signals or slots.
    for (const QMetaObject *base = type->superClass(); base != &QQuickItem::staticMetaObject;
         base = base->superClass())
        QCOMPARE(ownMethods(*base), QStringList());
    QCOMPARE(type->propertyCount(), QQuickItem::staticMetaObject.propertyCount());
}

void ControllersTest::padsTakeMidiEventsOnly()
{
    ConnectedModule connected;
    QVERIFY(connected.connected);
    qconnectpad pad(&connected.module, nullptr);
    const SignalRecorder recorder(&pad);
    pad.handleNote(0x494E, 0x9909, 0x6426);
    pad.handleNote(0x434F, 0x9909, 0x6426);
    pad.handleNote(0, 0x9909, 0x6426);
    QCOMPARE(recorder.texts(), QStringList());
    pad.handleNote(0x494D, 0x9909, 0x6426);
    QCOMPARE(recorder.count(), 1);
    QCOMPARE(recorder.count("noteReceived"), 1);
}

void ControllersTest::potsTakePotEventsOnly()
{
    ConnectedModule connected;
    QVERIFY(connected.connected);
    qconnectpot pot(&connected.module, nullptr);
    pot.handle(0x4350, 1, 1);
    pot.handle(0x494D, 1, 1);
    pot.handle(0, 1, 0);
    QCOMPARE(connected.recorder.texts(), QStringList());
    pot.handle(0x434F, 1, 1);
    QCOMPARE(connected.recorder.texts(), texts({"triggerPot1Inc()"}));
}

// The signals of the pot controller itself are never emitted.
void ControllersTest::potsSignalThroughTheControlObject()
{
    ConnectedModule connected;
    QVERIFY(connected.connected);
    qconnectpot pot(&connected.module, nullptr);
    const SignalRecorder recorder(&pot);
    for (quint16 number = 0; number < 4; ++number) {
        pot.handle(0x434F, number, 0);
        pot.handle(0x434F, number, 1);
    }
    QCOMPARE(connected.recorder.texts(),
             texts({"triggerPot0Dec()", "triggerPot0Inc()", "triggerPot1Dec()", "triggerPot1Inc()",
                    "triggerPot2Dec()", "triggerPot2Inc()", "triggerPot3Dec()", "triggerPot3Inc()"}));
    QCOMPARE(recorder.texts(), QStringList());
}

// A second pad controller decodes the events that the module forwards.
void ControllersTest::padsSignalBeforeTheControlObjectDoes()
{
    ConnectedModule connected;
    QVERIFY(connected.connected);
    qconnectpad pad(&connected.module, nullptr);
    const SignalRecorder recorder(&pad);
    QVERIFY(connected.deliver({
        datagram("IM AC 99096426"), // note 38, velocity 100
        datagram("IM AC a90a7f31"), // note 49, pressure 127
        datagram("IM AC b90b0504"), // controller 4 at 5
        datagram("IM AC c90c0007"), // program 7
    }));
    QCOMPARE(recorder.count(), 4);
    QCOMPARE(recorder.recorded().at(2).name, QByteArray("positionReceived"));
    QCOMPARE(recorder.texts().at(2), QStringLiteral("positionReceived(4, 5)"));
    QCOMPARE(recorder.texts().at(3), QStringLiteral("programReceived(7)"));
    QCOMPARE(recorder.recorded().at(0).name, QByteArray("noteReceived"));
    QCOMPARE(recorder.recorded().at(1).name, QByteArray("afterTouchReceived"));
}

QTEST_MAIN(ControllersTest)
#include "tst_controllers.moc"
