// A direct handler of any signal may delete the object that emits it.

#include "inbound/inboundrow.h"
#include "support/connectedmodule.h"
#include "support/datagram.h"

#include <QMetaMethod>
#include <QSet>
#include <QTest>

#include <algorithm>
#include <functional>
#include <memory>
#include <vector>

#include <malloc.h>

using namespace testsupport;
using namespace zelta::inbound;

namespace {

/// Makes the module emit a signal. Returns false when the message could not be delivered.
using Trigger = std::function<bool(EnginePeer &engine, QObject *module)>;

/// One emission of a signal in which the module is deleted.
struct DeletionRow
{
    QByteArray signal;
    const char *circumstance; ///< empty if the signal has only one row
    int emission;             ///< counted from 1
    Trigger trigger;
};

/// Sends datagrams of the engine, as testsupport::datagrams() reads them.
Trigger sending(const char *text)
{
    return [text](EnginePeer &engine, QObject *) {
        const QList<QByteArray> messages = testsupport::datagrams(text);
        return std::all_of(messages.begin(), messages.end(),
                           [&engine](const QByteArray &message) { return engine.send(message); });
    };
}

/// Posts a report of the transfer thread, while that thread waits for the answer to a query.
template<typename Call>
Trigger report(Call call)
{
    return [call](EnginePeer &, QObject *module) {
        return QMetaObject::invokeMethod(module, "requestSoundBankVersion") && call(module);
    };
}

Trigger plainReport(const char *slot)
{
    return report(
        [slot](QObject *module) { return QMetaObject::invokeMethod(module, slot, Qt::QueuedConnection); });
}

Trigger progressReport(const char *slot)
{
    return report([slot](QObject *module) {
        return QMetaObject::invokeMethod(module, slot, Qt::QueuedConnection, Q_ARG(qreal, 0.5));
    });
}

Trigger statusReport(const char *slot)
{
    return report([slot](QObject *module) {
        return QMetaObject::invokeMethod(module, slot, Qt::QueuedConnection, Q_ARG(quint16, 0));
    });
}

Trigger versionsReport(const char *slot)
{
    return report([slot](QObject *module) {
        return QMetaObject::invokeMethod(module, slot, Qt::QueuedConnection, Q_ARG(int, 1), Q_ARG(int, 2));
    });
}

/// Emissions that the tables of inbound events do not contain.
std::vector<DeletionRow> ownRows()
{
    return {
        {"potPacketArrived", "", 1, sending("434f4143 0000 0001")},

        // Strikes: IM AC, status and code index, velocity, note. Note 92 (5C) is pad 12, which also presses
        // and releases aux 3; note 94 (5E) is pad 13, which does the same with aux 4.
        {"notePacketArrived", "", 1, sending("494d4143 99096426")},
        {"noteChanged", "pad 12", 1, sending("494d4143 9909645c")},
        {"noteChanged", "pad 13", 1, sending("494d4143 9909645e")},
        {"aux3Changed", "press of pad 12", 1, sending("494d4143 9909645c")},
        {"aux3Changed", "release of pad 12", 2, sending("494d4143 9909645c")},
        {"aux4Changed", "press of pad 13", 1, sending("494d4143 9909645e")},
        {"aux4Changed", "release of pad 13", 2, sending("494d4143 9909645e")},

        // VN, TV, SN, TN: version replies. HL: raw value of the hi-hat.
        {"zeltaVersionChanged", "", 1, sending("564e 4143 0001 0005")},
        {"triggerVersionChanged", "", 1, sending("5456 4143 0001 0005")},
        {"soundbankVersionChanged", "", 1, sending("534e 4143 0001 0005")},
        {"triggerbankVersionChanged", "", 1, sending("544e 4143 0001 0005")},
        {"hihatRawValueChanged", "", 1, sending("484c 4143 0001 0005")},

        {"soundProgressChanged", "", 1, progressReport("updateSoundTransferProgress")},
        {"triggerProgressChanged", "", 1, progressReport("updateTriggerTransferProgress")},
        {"btfwProgressChanged", "", 1, progressReport("updateBtFwTransferProgress")},
        {"waveTransferProgress", "", 1, report([](QObject *module) {
             return QMetaObject::invokeMethod(module, "updateImportSlotProgress", Qt::QueuedConnection,
                                              Q_ARG(int, 5), Q_ARG(qreal, 0.5));
         })},
        {"waveTransferComplete", "", 1, report([](QObject *module) {
             return QMetaObject::invokeMethod(module, "updateImportSlotComplete", Qt::QueuedConnection,
                                              Q_ARG(int, 5), Q_ARG(quint16, 0));
         })},
        {"soundbankTransferComplete", "", 1, report([](QObject *module) {
             return QMetaObject::invokeMethod(module, "updateImportSBComplete", Qt::QueuedConnection,
                                              Q_ARG(quint16, 0), Q_ARG(quint32, 0));
         })},
        {"triggerbankTransferComplete", "", 1, statusReport("updateImportTBComplete")},
        {"bluetoothTransferComplete", "", 1, statusReport("updateImportBTComplete")},
        {"updateZeltaFwComplete", "", 1, plainReport("zeltaFwUpdated")},
        {"intFwUpdateStarted", "", 1, plainReport("internalFwUpdateStarted")},
        {"intFwUpdateFinished", "", 1, plainReport("internalFwUpdateFinished")},
        {"intZeltaFirmwareUpdateStarted", "", 1, versionsReport("internalZeltaFirmwareUpdateStarted")},
        {"intTriggerFirmwareUpdateStarted", "", 1, versionsReport("internalTriggerFirmwareUpdateStarted")},
        {"intZeltaFirmwareUpdateFinished", "", 1, plainReport("internalZeltaFirmwareUpdateFinished")},
        {"intTriggerFirmwareUpdateFinished", "", 1, plainReport("internalTriggerFirmwareUpdateFinished")},
    };
}

/// One row for each signal of the inbound tables: the first event that emits it from the initial state.
std::vector<DeletionRow> inboundRows()
{
    std::vector<DeletionRow> rows;
    QSet<QByteArray> found;
    for (const auto &table : {eventRows, switchRows, padRows, meterRows, messageRows}) {
        for (const InboundRow &row : table) {
            if (*row.earlier)
                continue;
            const QList<QByteArray> emitted = QByteArray(row.expectedSignals).split('|');
            for (const QByteArray &text : emitted) {
                const QByteArray signal = text.left(text.indexOf('(')).trimmed();
                if (signal.isEmpty() || found.contains(signal))
                    continue;
                found.insert(signal);
                rows.push_back({signal, "", 1, sending(row.sent)});
            }
        }
    }
    return rows;
}

const std::vector<DeletionRow> &deletionRows()
{
    static const std::vector<DeletionRow> all = [] {
        std::vector<DeletionRow> rows = inboundRows();
        const std::vector<DeletionRow> others = ownRows();
        rows.insert(rows.end(), others.begin(), others.end());
        return rows;
    }();
    return all;
}

/// Owns a module and deletes it in a direct handler of one of its signals.
class DeletingHost : public QObject
{
    Q_OBJECT

public:
    QConnectQmlPlugin *module() const { return m_module.get(); }

    /// Deletes the module in the given emission of the signal. Returns false when it has no such signal.
    bool deleteAt(int emission, const QByteArray &signal)
    {
        m_emissionsLeft = emission;
        const int handler = metaObject()->indexOfSlot("handleSignal()");
        const QMetaObject *meta = m_module->metaObject();
        for (int i = meta->methodOffset(); i < meta->methodCount(); ++i) {
            if (meta->method(i).name() == signal)
                return QMetaObject::connect(m_module.get(), i, this, handler, Qt::DirectConnection);
        }
        return false;
    }

private Q_SLOTS:
    void handleSignal()
    {
        if (--m_emissionsLeft == 0)
            m_module.reset();
    }

private:
    std::unique_ptr<QConnectQmlPlugin> m_module = std::make_unique<QConnectQmlPlugin>();
    int m_emissionsLeft = 0;
};

} // namespace

class DeletionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everySignalHasARow();
    void deletedInHandler_data();
    void deletedInHandler();
};

void DeletionTest::initTestCase()
{
    // Overwrites freed memory, so that its use ends the program in builds without a sanitizer as well.
    constexpr int freedByte = 0xA5;
    ::mallopt(M_PERTURB, freedByte);
}

void DeletionTest::everySignalHasARow()
{
    QStringList emitted;
    const QMetaObject &meta = QConnectQmlPlugin::staticMetaObject;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        if (meta.method(i).methodType() == QMetaMethod::Signal)
            emitted += QString::fromLatin1(meta.method(i).name());
    }
    // The module never emits these two.
    QVERIFY(emitted.removeOne(QStringLiteral("slotInfoReceived")));
    QVERIFY(emitted.removeOne(QStringLiteral("memInfoReceived")));
    emitted.sort();

    QStringList covered;
    for (const DeletionRow &row : deletionRows())
        covered += QString::fromLatin1(row.signal);
    covered.removeDuplicates();
    covered.sort();
    QCOMPARE(covered, emitted);
}

void DeletionTest::deletedInHandler_data()
{
    QTest::addColumn<int>("number");
    int number = 0;
    for (const DeletionRow &row : deletionRows())
        QTest::addRow("%s%s%s", row.signal.constData(), *row.circumstance ? ", " : "", row.circumstance)
            << number++;
}

void DeletionTest::deletedInHandler()
{
    QFETCH(int, number);
    const DeletionRow &row = deletionRows().at(size_t(number));

    EnginePeer engine;
    QVERIFY2(engine.isOpen(), qPrintable(engine.errorString()));
    DeletingHost host;
    QVERIFY(engine.connectTo(host.module()));
    QVERIFY(host.deleteAt(row.emission, row.signal));
    QVERIFY(row.trigger(engine, host.module()));
    QTRY_VERIFY_WITH_TIMEOUT(!host.module(), EnginePeer::answerMs);

    // A module that is created afterwards works.
    engine.discardPending();
    QConnectQmlPlugin next;
    QVERIFY(engine.connectTo(&next));
    QVERIFY(engine.settle(&next));
}

QTEST_MAIN(DeletionTest)
#include "tst_deletion.moc"
