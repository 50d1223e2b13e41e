#pragma once

#include "support/table.h"

namespace zelta {
namespace contract {

// The names, argument names and types that the QML of the touch screen relies on, in the order of the
// meta-object.

enum Finality { NotFinal, IsFinal };

struct Property
{
    const char *name;
    const char *type;
    const char *notifySignal;
    Finality finality;
};

extern const testsupport::Table<Property> properties;
extern const testsupport::Table<const char *> signalSignatures;
extern const testsupport::Table<const char *> slotSignatures;
extern const testsupport::Table<const char *> methodSignatures; ///< each begins with the return type

} // namespace contract
} // namespace zelta
