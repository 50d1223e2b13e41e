#pragma once

#include "support/patience.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>

/// A Latin-1 text with a length that the compiler knows.
template<int size>
constexpr QLatin1String latin1(const char (&text)[size])
{
    return QLatin1String(text, size - 1);
}

/// What tshark shows of a capture with the dissector of this build and without plug-ins of the user.
class Dissection
{
public:
    /// One frame: the values of the requested fields. The values of a field that occurs several times are
    /// separated by '|'.
    using Frame = QHash<QString, QString>;

    /// Runs tshark for at most timeoutMs. fields are requested in addition to _ws.col.Info, _ws.col.Protocol,
    /// zelta.text and _ws.expert.message; options are further arguments for tshark.
    explicit Dissection(const QString &capture, const QStringList &fields = {},
                        const QStringList &options = {}, int timeoutMs = testsupport::patienceMs);

    /// One line that says why the result cannot be used: tshark failed, or the dissector raised a Lua error.
    /// Empty if there is no error.
    QString problem() const { return m_problem; }
    const QVector<Frame> &frames() const { return m_frames; }

    static constexpr QLatin1String info = latin1("_ws.col.Info");         ///< the column
    static constexpr QLatin1String protocol = latin1("_ws.col.Protocol"); ///< the column
    static constexpr QLatin1String text = latin1("zelta.text");
    static constexpr QLatin1String reports = latin1("_ws.expert.message"); ///< expert infos

private:
    void read(const QByteArray &output, const QStringList &fields);

    QVector<Frame> m_frames;
    QString m_problem;
};
