#include "transfer/qconnectfirmware.h"

#include "control/qconnectqmlplugin.h"
#include "link/nrpn.h"
#include "link/parameterpages.h"

#include <QFile>
#include <QMutexLocker>

#include <algorithm>

namespace {

constexpr quint8 slotPage = 0x3D;

constexpr zelta::NrpnNumber isSlotInfoNumber{slotPage, 0x00};
constexpr zelta::NrpnNumber iwSlotInfoNumber{slotPage, 0x01};
constexpr zelta::NrpnNumber memInfoNumber{slotPage, 0x0F};
constexpr zelta::NrpnNumber deleteIsSlotNumber{slotPage, 0x70};
constexpr zelta::NrpnNumber deleteIwSlotNumber{slotPage, 0x71};
constexpr zelta::NrpnNumber deleteAllSlotsNumber{slotPage, 0x7F};
constexpr zelta::NrpnNumber deepEraseNumber{zelta::generalPage, 0x56};

// Erasing everything wants these values beside the number.
constexpr quint8 deleteAllSlotsValue = 0x7E;
constexpr quint8 deepEraseValue = 0x78;

constexpr int btIndexOfIpf = 0x4950;
constexpr int noBtIndex = -1;

} // namespace

void qconnectfirmware::deleteIsSlot(unsigned char slot, unsigned char channel)
{
    m_plugin->writeMidiData(zelta::nrpnPacket(deleteIsSlotNumber, slot, channel));
}

void qconnectfirmware::deleteIwSlot(unsigned char slot, unsigned char channel)
{
    m_plugin->writeMidiData(zelta::nrpnPacket(deleteIwSlotNumber, slot, channel));
}

void qconnectfirmware::deleteAllSlots(unsigned char channel)
{
    m_plugin->writeMidiData(zelta::nrpnPacket(deleteAllSlotsNumber, deleteAllSlotsValue, channel));
}

void qconnectfirmware::requestIsSlotInfo(unsigned char slot, unsigned char channel)
{
    m_plugin->writeMidiData(zelta::nrpnPacket(isSlotInfoNumber, slot, channel));
}

void qconnectfirmware::requestIwSlotInfo(unsigned char slot, unsigned char channel)
{
    m_plugin->writeMidiData(zelta::nrpnPacket(iwSlotInfoNumber, slot, channel));
}

void qconnectfirmware::requestMemInfo(unsigned char channel)
{
    m_plugin->writeMidiData(zelta::nrpnPacket(memInfoNumber, 0, channel));
}

void qconnectfirmware::deepErase(unsigned char channel)
{
    m_plugin->writeMidiData(zelta::nrpnPacket(deepEraseNumber, deepEraseValue, channel));
}

int qconnectfirmware::getBtFwSlotId(const QString &path)
{
    const QString extension = path.right(3);
    if (extension.startsWith(QLatin1Char('b')))
        return extension.rightRef(2).toInt();
    return extension == QLatin1String("ipf") ? btIndexOfIpf : noBtIndex;
}

int qconnectfirmware::checkBtFirmware(const QStringList &files)
{
    const QMutexLocker locker(&m_taskMutex);
    const bool allExist =
        std::all_of(files.cbegin(), files.cend(), [](const QString &file) { return QFile::exists(file); });
    return allExist ? 0 : -1;
}
