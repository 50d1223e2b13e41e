#pragma once

#include "link/nrpn.h"
#include "link/parameterpages.h"

// Parameter messages about the slots of imported sound banks (IS) and wave samples (IW), and about memory.

namespace zelta {

constexpr quint8 slotPage = 0x3D;

constexpr NrpnNumber isSlotInfoNumber{slotPage, 0x00};
constexpr NrpnNumber iwSlotInfoNumber{slotPage, 0x01};
constexpr NrpnNumber memInfoNumber{slotPage, 0x0F};
constexpr NrpnNumber deleteIsSlotNumber{slotPage, 0x70};
constexpr NrpnNumber deleteIwSlotNumber{slotPage, 0x71};
constexpr NrpnNumber deleteAllSlotsNumber{slotPage, 0x7F};
constexpr NrpnNumber deepEraseNumber{generalPage, 0x56};

// Values of the commands that erase everything.
constexpr quint8 deleteAllSlotsValue = 0x7E;
constexpr quint8 deepEraseValue = 0x78;

} // namespace zelta
