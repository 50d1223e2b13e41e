#pragma once

#include "fuzz/support/input.h"

#include <QMetaMethod>
#include <QVariant>
#include <QVector>

class QObject;

namespace fuzz {

/// Makes the files that path arguments name: firmware, banks, samples, a catalogue, a pipe, a folder.
void makeArgumentFiles();

/// Arguments for a method, of its types, with values that an input tells. A text whose parameter's name has
/// "file" in it is the path of one of the files above, or of none.
class Arguments
{
public:
    Arguments(const QMetaMethod &method, Input &input);

    /// Calls the method. False when it could not be called at all.
    bool call(QObject *object);

    template<typename T>
    T value(int index) const
    {
        return m_values.at(index).value<T>();
    }

private:
    QMetaMethod m_method;
    QVector<QVariant> m_values;
};

} // namespace fuzz
