#include "support/signalrecorder.h"

#include "support/enginepeer.h"

#include <QMetaMethod>
#include <QMutexLocker>
#include <QThread>

#include <algorithm>

namespace testsupport {

namespace {

QString argumentText(const QVariant &value)
{
    switch (value.userType()) {
    case QMetaType::QString: return QStringLiteral("\"%1\"").arg(value.toString());
    case QMetaType::UChar: return QString::number(value.value<uchar>());
    case QMetaType::UShort: return QString::number(value.value<ushort>());
    case QMetaType::Double: return QString::number(value.toDouble(), 'g', 12);
    default: return value.toString();
    }
}

QString signalText(const RecordedSignal &recorded)
{
    QStringList arguments;
    for (const QVariant &argument : recorded.arguments)
        arguments += argumentText(argument);
    return QStringLiteral("%1(%2)").arg(QString::fromLatin1(recorded.name),
                                        arguments.join(QStringLiteral(", ")));
}

bool isFence(const RecordedSignal &recorded)
{
    return recorded.name == "udpPacketArrived" && !recorded.arguments.isEmpty() &&
           recorded.arguments.constFirst().toUInt() == EnginePeer::fenceKind;
}

} // namespace

SignalRecorder::SignalRecorder(QObject *object)
{
    const QMetaObject *meta = object->metaObject();
    // These slots have no functions. Their numbers follow those of QObject; qt_metacall() handles them.
    const int firstSlot = QObject::staticMetaObject.methodCount();
    for (int i = QObject::staticMetaObject.methodCount(); i < meta->methodCount(); ++i) {
        const QMetaMethod method = meta->method(i);
        if (method.methodType() != QMetaMethod::Signal)
            continue;
        Source source{method.name(), {}, 0};
        for (int parameter = 0; parameter < method.parameterCount(); ++parameter)
            source.types.push_back(method.parameterType(parameter));
        QMetaObject::connect(object, i, this, firstSlot + int(m_sources.size()), Qt::DirectConnection);
        m_sources.push_back(std::move(source));
    }
}

int SignalRecorder::qt_metacall(QMetaObject::Call call, int id, void **arguments)
{
    const int slot = QObject::qt_metacall(call, id, arguments);
    if (slot < 0 || call != QMetaObject::InvokeMetaMethod || slot >= int(m_sources.size()))
        return slot;
    Source &source = m_sources.at(size_t(slot));
    RecordedSignal recorded{source.name, {}};
    for (size_t i = 0; i < source.types.size(); ++i)
        recorded.arguments.append(QVariant(source.types.at(i), arguments[i + 1]));
    if (!isFence(recorded)) {
        const QMutexLocker lock(&m_mutex);
        m_recorded.append(recorded);
        ++source.count;
        m_foreign += QThread::currentThread() == thread() ? 0 : 1;
    }
    return -1;
}

QList<RecordedSignal> SignalRecorder::recorded() const
{
    return recordedFrom(0);
}

QList<RecordedSignal> SignalRecorder::recordedFrom(int first) const
{
    const QMutexLocker lock(&m_mutex);
    // A detached copy: Qt does not synchronise the destruction of a shared copy in one thread with a change
    // in another thread.
    QList<RecordedSignal> copy = m_recorded.mid(first);
    copy.detach();
    return copy;
}

int SignalRecorder::foreignCount() const
{
    const QMutexLocker lock(&m_mutex);
    return m_foreign;
}

int SignalRecorder::count() const
{
    const QMutexLocker lock(&m_mutex);
    return m_recorded.size();
}

int SignalRecorder::count(const char *name) const
{
    const QMutexLocker lock(&m_mutex);
    int found = 0;
    for (const Source &source : m_sources)
        found += source.name == name ? source.count : 0;
    return found;
}

bool SignalRecorder::hasText(const QString &text, int &from) const
{
    const QList<RecordedSignal> added = recordedFrom(from);
    from += added.size();
    return std::any_of(added.begin(), added.end(),
                       [&text](const RecordedSignal &one) { return signalText(one) == text; });
}

QStringList SignalRecorder::texts() const
{
    QStringList result;
    const QList<RecordedSignal> all = recorded();
    for (const RecordedSignal &one : all)
        result += signalText(one);
    return result;
}

QStringList SignalRecorder::takeTexts()
{
    const QStringList result = texts();
    clear();
    return result;
}

void SignalRecorder::clear()
{
    const QMutexLocker lock(&m_mutex);
    m_recorded.clear();
    for (Source &source : m_sources)
        source.count = 0;
}

} // namespace testsupport
