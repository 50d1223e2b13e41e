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

QString switchName(quint16 tag)
{
    for (const Named &named : names) {
        if (named.value == tag)
            return QLatin1String(named.name);
    }
    return {};
}

QString switchText(quint16 tag)
{
    const QString name = switchName(tag);
    return name.isEmpty() ? tagText(tag) : name;
}

QString switchNames()
{
    return listed(names);
}

} // namespace simulated
