#pragma once

#include <QStringList>

/// What can be sent, and how the module's QML type is asked to.
struct Kind
{
    enum class Extra { None, Slot, SlotAndName };

    const char *option; ///< what --kind takes
    const char *words;
    const char *method; ///< of the QML type
    Extra extra;        ///< arguments beside the file
    bool isFirmware;    ///< sent only when it is newer than what the module has
    bool isSet;         ///< comes as several files
};

/// The kind of that name, null when there is none.
const Kind *kindNamed(const QString &option);
QStringList kindNames();
