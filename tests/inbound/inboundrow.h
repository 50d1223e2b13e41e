#pragma once

#include "support/table.h"

namespace zelta {
namespace inbound {

/// What the engine sends and everything that this changes.
struct InboundRow
{
    const char *name;
    const char *sent;            ///< datagrams in hex, '|' between them
    const char *expectedSignals; ///< in their order, '|' between them; hand-overs to the controllers left out
    const char *changed;         ///< "property=value", '|' between them, in the order of the properties
    const char *earlier = "";    ///< datagrams that came before and are not looked at
};

extern const testsupport::Table<InboundRow> eventRows;
extern const testsupport::Table<InboundRow> switchRows;
extern const testsupport::Table<InboundRow> padRows;
extern const testsupport::Table<InboundRow> meterRows;
extern const testsupport::Table<InboundRow> messageRows;

} // namespace inbound
} // namespace zelta
