#include "transfer/qconnectfirmware.h"

#include "control/qconnectqmlplugin.h"
#include "link/timerslack.h"
#include "transfer/datapacket.h"
#include "transfer/filetransfer.h"
#include "transfer/inputfile.h"
#include "transfer/logging.h"

#include <QFile>

Q_LOGGING_CATEGORY(lcTransfer, "zeltaconnect.transfer", QtWarningMsg)

qconnectfirmware::qconnectfirmware(QConnectQmlPlugin *plugin, QObject *parent)
    : QThread(parent)
    , m_plugin(plugin)
{
    connect(plugin, SIGNAL(udpPacketArrived(quint16, quint16, quint16)), this,
            SLOT(handleAck(quint16, quint16, quint16)));
}

qconnectfirmware::~qconnectfirmware()
{
    stop();
}

void qconnectfirmware::stop()
{
    m_state.stop();
    wait();
}

void qconnectfirmware::pushLogLine(const QString & /*line*/) {}

void qconnectfirmware::writeLogToFile(const QString & /*path*/) const {}

void qconnectfirmware::setZeltaVersion(int version)
{
    m_zeltaVersion = version;
    // Queued like the signals of this thread, so that their order is kept and QML handlers run in the GUI
    // thread.
    QMetaObject::invokeMethod(m_plugin, "zeltaVersionChanged", Qt::QueuedConnection);
}

// Task loop

void qconnectfirmware::run()
{
    zelta::useMinimalTimerSlack();

    FirmwareDesc task;
    while (m_state.takeTask(task)) {
        if (!perform(task))
            return;
    }
    pushLogLine(QStringLiteral("--> task end"));
    writeLogToFile(QStringLiteral("/run/media/sda1/transfer_log.txt"));
}

// Returns false when the thread must end at once.
bool qconnectfirmware::perform(const FirmwareDesc &task)
{
    const zelta::TaskTraits *traits = zelta::traitsOf(task.kind);
    if (!traits)
        return true;

    zelta::FirmwareVersions versions;
    if (traits->fileVersion) {
        versions.file = traits->fileVersion(task.path);
        if (versions.file < 0) {
            QFile file(task.path);
            if (zelta::openForReading(file))
                qCInfo(lcTransfer) << task.path << "carries no version";
            else
                zelta::logUnreadable(file);
            return true;
        }
    }
    if (traits->query != 0) {
        const std::optional<int> reply =
            m_state.ask([&] { m_plugin->writeBinaryData(DATA_PACKET(traits->query, 0)); });
        if (!reply) {
            if (traits->fileVersion)
                qCInfo(lcTransfer) << task.path << "aborted: before the data";
            return false;
        }
        versions.device = *reply;
        if (versions.device >= versions.file) {
            if (traits->fileVersion) {
                qCInfo(lcTransfer) << task.path
                                   << "is not newer:" << qPrintable(zelta::majorMinorText(versions.file))
                                   << "in the file," << qPrintable(zelta::majorMinorText(versions.device))
                                   << "in the device";
            }
            Q_EMIT transferDone();
            return true;
        }
    }
    if (traits->content != 0) {
        m_logLines.clear();
        if (!zelta::FileTransfer(*m_plugin, *this, m_state, task, versions).run())
            return true;
    }
    m_state.noteEndOfTask();
    Q_EMIT transferDone();
    return true;
}

// Calls from the GUI thread

void qconnectfirmware::queue(zelta::TaskKind kind, const QString &path, const QString &name, int slot)
{
    m_state.append({path, name, kind, slot}, [&](bool leaving) {
        // start() would do nothing while the thread still counts as running.
        if (leaving)
            wait();
        start(zelta::traitsOf(kind)->priority);
    });
}

void qconnectfirmware::sendParameter(zelta::NrpnNumber number, quint8 value, quint8 channel)
{
    m_plugin->writeMidiData(zelta::nrpnPacket(number, value, channel));
}

int qconnectfirmware::checkBtFirmware(const QStringList &files)
{
    bool allExist = false;
    m_state.whileLocked([&] { allExist = zelta::allExist(files); });
    return allExist ? 0 : -1;
}
