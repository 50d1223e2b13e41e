#pragma once

#include "support/table.h"

namespace zelta {
namespace inbound {

/// What the engine sends and all changes that it causes.
struct InboundRow
{
    const char *name;
    const char *sent; ///< as datagrams() reads them
    const char
        *expectedSignals;     ///< in their order, '|' between them, without the signals for the controllers
    const char *changed;      ///< "property=value", '|' between them, in the order of the properties
    const char *earlier = ""; ///< datagrams sent before, whose effects are not checked
};

extern const testsupport::Table<InboundRow> eventRows;
extern const testsupport::Table<InboundRow> switchRows;
extern const testsupport::Table<InboundRow> padRows;
extern const testsupport::Table<InboundRow> meterRows;
extern const testsupport::Table<InboundRow> messageRows;

} // namespace inbound
} // namespace zelta
