#include "controllers/qconnectpad_cp.h"

#include "controllers/encodings.h"

namespace {

// The page selects the parameter, the pad's note is the second half of the number.
constexpr quint8 activePage = 0x28;
constexpr quint8 attackTimePage = 0x29;
constexpr quint8 releaseTimePage = 0x2A;
constexpr quint8 thresholdPage = 0x2B;
constexpr quint8 ratioPage = 0x2C;
constexpr quint8 boostPage = 0x2D;
constexpr quint8 kneePage = 0x2E;
constexpr quint8 levelReportPage = 0x2F;

} // namespace

void qconnectpad_cp::setPadCpActive(bool active, quint8 note, quint8 channel)
{
    sendParameter({activePage, note}, zelta::onOff(active), channel);
}

void qconnectpad_cp::setPadCpAttackTime(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({attackTimePage, note}, value, channel);
}

void qconnectpad_cp::setPadCpReleaseTime(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({releaseTimePage, note}, value, channel);
}

void qconnectpad_cp::setPadCpThreshold(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({thresholdPage, note}, value, channel);
}

void qconnectpad_cp::setPadCpRatio(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({ratioPage, note}, value, channel);
}

void qconnectpad_cp::setPadCpBoost(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({boostPage, note}, value, channel);
}

void qconnectpad_cp::setPadCpKnee(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({kneePage, note}, value, channel);
}

void qconnectpad_cp::requestLevelUpdate(quint8 note, quint8 channel)
{
    sendParameter({levelReportPage, note}, 0, channel);
}
