// Compiled into each test program that is built with the thread sanitizer. The sanitizer sees only
// instrumented code and pthreads. Qt is not instrumented and its mutex uses a futex, so the sanitizer would
// report a race for all data that Qt synchronises. The functions below replace Qt's functions for calls from
// this project (calls within Qt are not affected) and report to the sanitizer what each of them synchronises.
// This does not hide a race. Accesses that are not synchronised by a lock, a queued call or the end of a
// thread are still reported, and so are locks taken in different orders.

#include <QCoreApplication>
#include <QEvent>
#include <QMutex>
#include <QThread>
#include <QWaitCondition>

#include <array>
#include <atomic>
#include <cstddef>
#include <utility>

#include <dlfcn.h>
#include <sanitizer/tsan_interface.h>

namespace {

// Qt's function with that symbol. A member function is called like a function whose first argument is the
// object.
template<typename Function>
Function *qtFunction(const char *symbol)
{
    return reinterpret_cast<Function *>(::dlsym(RTLD_NEXT, symbol));
}

void noteUnlock(QMutex *mutex)
{
    __tsan_mutex_pre_unlock(mutex, 0);
    __tsan_mutex_post_unlock(mutex, 0);
}

void noteLock(QMutex *mutex, unsigned flags)
{
    __tsan_mutex_pre_lock(mutex, flags);
    __tsan_mutex_post_lock(mutex, flags, 0);
}

unsigned creationFlags(const QMutex *mutex)
{
    return mutex->isRecursive() ? __tsan_mutex_write_reentrant : 0;
}

// A queued call: the sender's earlier writes are visible to the receiver. The lock of the event queue
// synchronises each posted event with all later ones of the receiving thread, so all calls share one
// variable.
char handOver;

bool beforeEvent(void **arguments)
{
    const auto *event = static_cast<const QEvent *>(arguments[1]);
    if (event->type() == QEvent::MetaCall)
        __tsan_acquire(&handOver);
    return false; // the event is delivered
}

[[maybe_unused]] const bool watchingEvents =
    QInternal::registerCallback(QInternal::EventNotifyCallback, &beforeEvent);

// Arguments of a queued call are copied after the call of the sender and before the event is posted, by code
// of this project unless the type is one of Qt's. The constructor of a type is a plain function, so there is
// one per type.
using Constructor = QMetaType::Constructor;
constexpr std::size_t typesAtMost = 64;
std::array<Constructor, typesAtMost> constructors;
std::atomic<std::size_t> typesSeen{0};

template<std::size_t index>
void *constructArgument(void *where, const void *original)
{
    void *const copy = constructors[index](where, original);
    __tsan_release(&handOver);
    return copy;
}

template<std::size_t... indexes>
Constructor constructorAt(std::size_t index, std::index_sequence<indexes...> /*all*/)
{
    static constexpr Constructor all[] = {&constructArgument<indexes>...};
    return all[index];
}

// The end of a thread: its writes are visible to a thread that waits for it. Reported in the ending thread.
class ThreadEnds : public QObject
{
public:
    void watch(QThread *thread)
    {
        connect(thread, &QThread::finished, this, &ThreadEnds::note,
                Qt::ConnectionType(Qt::DirectConnection | Qt::UniqueConnection));
    }

private:
    // NOLINTNEXTLINE(readability-convert-member-functions-to-static): slots are member functions
    void note() { __tsan_release(QThread::currentThread()); }
};

} // namespace

QMutex::~QMutex()
{
    static const auto original = qtFunction<void(QMutex *)>("_ZN6QMutexD1Ev");
    __tsan_mutex_destroy(this, 0);
    original(this);
}

void QMutex::lock() noexcept
{
    static const auto original = qtFunction<void(QMutex *)>("_ZN6QMutex4lockEv");
    const unsigned flags = creationFlags(this);
    __tsan_mutex_pre_lock(this, flags);
    original(this);
    __tsan_mutex_post_lock(this, flags, 0);
}

bool QMutex::tryLock(int timeout) noexcept
{
    static const auto original = qtFunction<bool(QMutex *, int)>("_ZN6QMutex7tryLockEi");
    const unsigned flags = creationFlags(this) | __tsan_mutex_try_lock;
    __tsan_mutex_pre_lock(this, flags);
    const bool locked = original(this, timeout);
    __tsan_mutex_post_lock(this, locked ? flags : flags | __tsan_mutex_try_lock_failed, 0);
    return locked;
}

void QMutex::unlock() noexcept
{
    static const auto original = qtFunction<void(QMutex *)>("_ZN6QMutex6unlockEv");
    __tsan_mutex_pre_unlock(this, 0);
    original(this);
    __tsan_mutex_post_unlock(this, 0);
}

bool QWaitCondition::wait(QMutex *mutex, QDeadlineTimer deadline)
{
    static const auto original = qtFunction<bool(QWaitCondition *, QMutex *, QDeadlineTimer)>(
        "_ZN14QWaitCondition4waitEP6QMutex14QDeadlineTimer");
    noteUnlock(mutex);
    const bool woken = original(this, mutex, deadline);
    noteLock(mutex, creationFlags(mutex));
    return woken;
}

bool QWaitCondition::wait(QMutex *mutex, unsigned long time)
{
    static const auto original =
        qtFunction<bool(QWaitCondition *, QMutex *, unsigned long)>("_ZN14QWaitCondition4waitEP6QMutexm");
    noteUnlock(mutex);
    const bool woken = original(this, mutex, time);
    noteLock(mutex, creationFlags(mutex));
    return woken;
}

// The sanitizer knows the start from pthread_create().
void QThread::start(Priority priority)
{
    static const auto original = qtFunction<void(QThread *, Priority)>("_ZN7QThread5startENS_8PriorityE");
    static auto *const ends = new ThreadEnds;
    ends->watch(this);
    original(this, priority);
}

bool QThread::wait(QDeadlineTimer deadline)
{
    static const auto original =
        qtFunction<bool(QThread *, QDeadlineTimer)>("_ZN7QThread4waitE14QDeadlineTimer");
    const bool ended = original(this, deadline);
    if (ended)
        __tsan_acquire(this);
    return ended;
}

bool QThread::wait(unsigned long time)
{
    static const auto original = qtFunction<bool(QThread *, unsigned long)>("_ZN7QThread4waitEm");
    const bool ended = original(this, time);
    if (ended)
        __tsan_acquire(this);
    return ended;
}

// Called for each signal of this project.
void QMetaObject::activate(QObject *sender, const QMetaObject *metaObject, int signalIndex, void **arguments)
{
    static const auto original = qtFunction<void(QObject *, const QMetaObject *, int, void **)>(
        "_ZN11QMetaObject8activateEP7QObjectPKS_iPPv");
    __tsan_release(&handOver);
    original(sender, metaObject, signalIndex, arguments);
}

int QMetaType::registerNormalizedType(const ::QByteArray &name, Destructor destructor,
                                      Constructor constructor, int size, TypeFlags flags,
                                      const QMetaObject *metaObject)
{
    static const auto original =
        qtFunction<int(const ::QByteArray &, Destructor, Constructor, int, TypeFlags, const QMetaObject *)>(
            "_ZN9QMetaType22registerNormalizedTypeERK10QByteArrayPFvPvEPFS3_S3_PKvEi6QFlagsINS_8TypeFlagEEPK"
            "11QMetaObject");
    const std::size_t index = typesSeen++;
    if (index >= typesAtMost) // reported as a race if it is an argument of a queued call
        return original(name, destructor, constructor, size, flags, metaObject);
    constructors[index] = constructor;
    const Constructor observed = constructorAt(index, std::make_index_sequence<typesAtMost>());
    return original(name, destructor, observed, size, flags, metaObject);
}

bool QMetaObject::invokeMethod(QObject *object, const char *member, Qt::ConnectionType type,
                               QGenericReturnArgument result, QGenericArgument a0, QGenericArgument a1,
                               QGenericArgument a2, QGenericArgument a3, QGenericArgument a4,
                               QGenericArgument a5, QGenericArgument a6, QGenericArgument a7,
                               QGenericArgument a8, QGenericArgument a9)
{
    using Argument = QGenericArgument;
    static const auto original = qtFunction<bool(
        QObject *, const char *, Qt::ConnectionType, QGenericReturnArgument, Argument, Argument, Argument,
        Argument, Argument, Argument, Argument, Argument, Argument, Argument)>(
        "_ZN11QMetaObject12invokeMethodEP7QObjectPKcN2Qt14ConnectionTypeE22QGenericReturnArgument"
        "16QGenericArgumentS7_S7_S7_S7_S7_S7_S7_S7_S7_");
    __tsan_release(&handOver);
    return original(object, member, type, result, a0, a1, a2, a3, a4, a5, a6, a7, a8, a9);
}

void QCoreApplication::postEvent(QObject *receiver, QEvent *event, int priority)
{
    static const auto original =
        qtFunction<void(QObject *, QEvent *, int)>("_ZN16QCoreApplication9postEventEP7QObjectP6QEventi");
    __tsan_release(&handOver);
    original(receiver, event, priority);
}
