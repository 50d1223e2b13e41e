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

/// Records every signal of an object in the order of their emission, so that a test sees what fired, in which
/// order and that nothing else did. Leaves out QObject's own signals and the fences of EnginePeer.
/// Signals may be emitted in any thread.
///
/// It listens like any other listener, after the object's own parts: what these emit while they handle a
/// signal stands before that signal.
class SignalRecorder : public QObject
{
public:
    explicit SignalRecorder(QObject *object);

    QList<RecordedSignal> recorded() const;
    int count() const;
    int count(const char *name) const;

    /// Number of signals that were emitted in another thread than this recorder's.
    int foreignCount() const;

    /// One text per signal: "tempoChanged()", "udpPacketArrived(16706, 1, 2)", "sysEx(\"04f0\")".
    QStringList texts() const;
    /// True when a signal of that text is among those from number from on; from is then the first one that
    /// was not looked at, so that asking again and again costs no more than asking once.
    bool hasText(const QString &text, int &from) const;
    /// texts() and clear() in one.
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
