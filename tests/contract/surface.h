#pragma once

#include "support/table.h"

namespace zelta {
namespace contract {

// What the QML of the touch screen relies on, in the order of the type's tables: names, argument names,
// types.

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
extern const testsupport::Table<const char *> methodSignatures; ///< with the type of the result in front

} // namespace contract
} // namespace zelta
