#pragma once

#include <vector>

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

extern const std::vector<Property> properties;
extern const std::vector<const char *> signalSignatures;
extern const std::vector<const char *> slotSignatures;
extern const std::vector<const char *> methodSignatures; ///< with the type of the result in front

} // namespace contract
} // namespace zelta
