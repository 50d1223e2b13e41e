#pragma once

#include "fuzz/support/input.h"

#include <QMetaMethod>
#include <QVariant>
#include <QVector>

class QObject;

namespace fuzz {

/// Creates the files for path arguments: firmware, banks, samples, a catalogue, a pipe, a folder.
void makeArgumentFiles();

/// The arguments of a method, with values from an input. A text parameter with "file" in its name is the path
/// of one of the files above, or of no file.
class Arguments
{
public:
    Arguments(const QMetaMethod &method, Input &input);

    /// Calls the method. False if it could not be called.
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
