#pragma once

#include <QByteArray>
#include <QList>
#include <QMutex>
#include <QObject>
#include <QStringList>
#include <QVariant>

#include <utility>
#include <vector>

namespace testsupport {

struct RecordedSignal
{
    QByteArray name;
    QVariantList arguments;
};

/// Records all signals of an object in the order of their emission, except the signals of QObject and the
/// fences of EnginePeer. Signals can be emitted in any thread.
///
/// The slots of the object's own parts are connected earlier. If such a slot emits another signal while it
/// handles a signal, the other signal is therefore recorded first.
class SignalRecorder : public QObject
{
public:
    explicit SignalRecorder(QObject *object);

    QList<RecordedSignal> recorded() const;
    int count() const;
    int count(const char *name) const;

    /// The number of signals that were emitted outside the recorder's thread.
    int foreignCount() const;

    /// One text per signal: "tempoChanged()", "udpPacketArrived(16706, 1, 2)", "sysEx(\"04f0\")".
    QStringList texts() const;
    /// True if a signal with that text is among those from index `from` on. Sets `from` to the number of
    /// signals, so that the next call examines only new ones.
    bool hasText(const QString &text, int &from) const;
    /// texts(), then clear().
    QStringList takeTexts();
    void clear();

    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override;

private:
    struct Source
    {
        QByteArray name;
        std::vector<int> types;
        int count = 0;
    };
    QList<RecordedSignal> recordedFrom(int first) const;

    mutable QMutex m_mutex;
    std::vector<Source> m_sources;
    QList<RecordedSignal> m_recorded;
    int m_foreign = 0;
};

} // namespace testsupport
