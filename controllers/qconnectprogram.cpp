#include "controllers/qconnectprogram.h"

namespace {

constexpr quint8 programChangeCodeIndex = 0x0C;
constexpr quint8 programChangeOnChannel10 = 0xC9;

} // namespace

void qconnectprogram::setNewProgram(quint8 program)
{
    sendEvent({programChangeCodeIndex, programChangeOnChannel10, program, 0});
}
