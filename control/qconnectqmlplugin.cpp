#include "control/qconnectqmlplugin.h"

#include "link/sockettransceiver.h"

QConnectQmlPlugin::QConnectQmlPlugin(QQuickItem *parent)
    : QQuickItem(parent)
    , m_link(std::make_unique<SocketTransceiver>())
{
    connectPads();
    connectLink();
    connectTransfers();
}

QConnectQmlPlugin::~QConnectQmlPlugin()
{
    // The transfer thread sends through the link, so it must end first. The link is destroyed before all
    // other members, so that no event of the engine reaches a partly destroyed object.
    m_firmware.stop();
    m_link.reset();
}

void QConnectQmlPlugin::connectPads()
{
    connect(&m_pad, SIGNAL(noteReceived(quint32)), this, SLOT(updateNote(quint32)));
    connect(&m_pad, SIGNAL(afterTouchReceived(quint32)), this, SLOT(updateAfterTouchNote(quint32)));
    connect(&m_pad, SIGNAL(positionReceived(quint32, quint32)), this,
            SLOT(updatePadPosition(quint32, quint32)));
    connect(&m_pad, SIGNAL(programReceived(quint8)), this, SLOT(updateProgram(quint8)));
}

void QConnectQmlPlugin::connectLink()
{
    connect(m_link.get(), SIGNAL(sockUdpPacketArrived(quint16, quint16, quint16)), this,
            SLOT(udpPacket(quint16, quint16, quint16)));
    connect(m_link.get(),
            SIGNAL(sockCompPacketArrived(quint16, quint16, quint16, quint16, quint16, quint16, quint16)),
            this, SLOT(updateComp(quint16, quint16, quint16, quint16, quint16, quint16, quint16)));
    connect(
        m_link.get(),
        SIGNAL(sockOutLevelPacketArrived(quint16, quint16, quint16, quint16, quint16, quint16, quint16,
                                         quint16, quint16, quint16, quint16, quint16, quint16, quint16,
                                         quint16, quint16, quint16, quint16)),
        this,
        SLOT(updateOuts(quint16, quint16, quint16, quint16, quint16, quint16, quint16, quint16, quint16,
                        quint16, quint16, quint16, quint16, quint16, quint16, quint16, quint16, quint16)));
    connect(m_link.get(), SIGNAL(receivedTestCommand(QString, QString, QString)), this,
            SLOT(forwardTestCommand(QString, QString, QString)));
    connect(m_link.get(), SIGNAL(receivedSysEx(QString)), this, SLOT(forwardSysEx(QString)));
}

void QConnectQmlPlugin::connectTransfers()
{
    connect(&m_firmware, SIGNAL(soundTransferProgress(qreal)), this,
            SLOT(updateSoundTransferProgress(qreal)));
    connect(&m_firmware, SIGNAL(triggerTransferProgress(qreal)), this,
            SLOT(updateTriggerTransferProgress(qreal)));
    connect(&m_firmware, SIGNAL(zeltaFwUpdateDone()), this, SLOT(zeltaFwUpdated()));
    connect(&m_firmware, SIGNAL(importSlotProgress(int, qreal)), this,
            SLOT(updateImportSlotProgress(int, qreal)));
    connect(&m_firmware, SIGNAL(importSlotComplete(int, quint16)), this,
            SLOT(updateImportSlotComplete(int, quint16)));
    connect(&m_firmware, SIGNAL(btfwTransferProgress(qreal)), this, SLOT(updateBtFwTransferProgress(qreal)));
    connect(&m_firmware, SIGNAL(importSBComplete(quint16, quint32)), this,
            SLOT(updateImportSBComplete(quint16, quint32)));
    connect(&m_firmware, SIGNAL(importTBComplete(quint16)), this, SLOT(updateImportTBComplete(quint16)));
    connect(&m_firmware, SIGNAL(importBTComplete(quint16)), this, SLOT(updateImportBTComplete(quint16)));
    connect(&m_firmware, SIGNAL(internalUpdateStarted()), this, SLOT(internalFwUpdateStarted()));
    connect(&m_firmware, SIGNAL(internalUpdateFinished()), this, SLOT(internalFwUpdateFinished()));
    connect(&m_firmware, SIGNAL(zeltaFirmwareUpdateStarted(int, int)), this,
            SLOT(internalZeltaFirmwareUpdateStarted(int, int)));
    connect(&m_firmware, SIGNAL(triggerFirmwareUpdateStarted(int, int)), this,
            SLOT(internalTriggerFirmwareUpdateStarted(int, int)));
    connect(&m_firmware, SIGNAL(zeltaFirmwareUpdateFinished()), this,
            SLOT(internalZeltaFirmwareUpdateFinished()));
    connect(&m_firmware, SIGNAL(triggerFirmwareUpdateFinished()), this,
            SLOT(internalTriggerFirmwareUpdateFinished()));
}
