#pragma once

#include <QStringList>

/// A kind of file.
struct Kind
{
    enum class Extra { None, Slot, SlotAndName };

    const char *option;     ///< name for --kind
    const char *noun;       ///< name in a sentence
    const char *enumerator; ///< of FileTransfer.Kind
    Extra extra;            ///< further arguments of the method
    bool isFirmware;        ///< the module sends it only when it is newer than its own
    bool isSet;             ///< consists of several files
};

/// The kind with that name for --kind, or null.
const Kind *kindNamed(const QString &option);
QStringList kindNames();
