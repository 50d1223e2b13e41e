#include "switches.h"

#include "commandreaders.h"

namespace simulated {

namespace {

constexpr Named names[] = {
    {"power", tag("PW")}, {"foot1", tag("F1")},     {"foot2", tag("F2")}, {"aux3", tag("A3")},
    {"aux4", tag("A4")},  {"headphone", tag("HP")}, {"mixin", tag("MI")}, {"home", tag("HM")},
};

} // namespace

bool readSwitch(const QString &text, quint16 *tag, bool *isNamed)
{
    const Named *named = findNamed(names, text);
    *isNamed = named != nullptr;
    if (named == nullptr)
        return readTag(text, tag);
    *tag = named->value;
    return true;
}

QString switchText(quint16 tag)
{
    for (const Named &named : names) {
        if (named.value == tag)
            return QLatin1String(named.name);
    }
    return tagText(tag);
}

QString switchNames()
{
    return listed(names);
}

} // namespace simulated
