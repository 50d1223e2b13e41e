// Runs one case with two threads, correctly synchronised or not, under the thread sanitizer. This is not a
// test: judgerace.cmake runs it, and CMakeLists.txt contains the expected finding of each case.

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QMutex>
#include <QThread>
#include <QVector>
#include <QWaitCondition>

#include <cstdio>
#include <cstring>
#include <functional>
#include <thread>

namespace {

constexpr int rounds = 2000;
constexpr int burst = 10;

/// Counts and emits a signal for each step. The object lives in the GUI thread, the emissions are in the
/// worker thread.
class CountingThread : public QThread
{
    Q_OBJECT

public:
    explicit CountingThread(bool locks)
        : m_locks(locks)
    {}

    int count()
    {
        if (!m_locks)
            return m_count;
        const QMutexLocker locker(&m_mutex);
        return m_count;
    }

Q_SIGNALS:
    void counted(const QVector<int> &steps);

protected:
    void run() override
    {
        for (int i = 0; i < rounds; ++i) {
            Q_EMIT counted({i, i + 1});
            step(); // after the signal, so that its receiver can read at the same time
            // Most signals are emitted while the receiver is still busy, so that they do not wake it.
            if (i % burst == burst - 1)
                usleep(100);
        }
    }

private:
    void step()
    {
        if (!m_locks) {
            ++m_count;
            return;
        }
        const QMutexLocker locker(&m_mutex);
        ++m_count;
    }

    const bool m_locks;
    QMutex m_mutex;
    int m_count = 0;
};

int countByStandardThreads(QMutex *first, QMutex *second)
{
    int count = 0;
    const auto work = [&count](QMutex *mutex) {
        for (int i = 0; i < rounds; ++i) {
            const QMutexLocker locker(mutex);
            ++count;
        }
    };
    std::thread one(work, first);
    std::thread other(work, second);
    one.join();
    other.join();
    return count;
}

void shareWithoutLock()
{
    countByStandardThreads(nullptr, nullptr);
}

void shareUnderDifferentLocks()
{
    QMutex first;
    QMutex second;
    countByStandardThreads(&first, &second);
}

void shareUnderOneLock()
{
    QMutex mutex;
    countByStandardThreads(&mutex, &mutex);
}

// The GUI thread reads the worker's data while queued signals arrive.
int watchCounting(bool locks)
{
    CountingThread worker(locks);
    QObject receiver;
    int sum = 0;
    QObject::connect(&worker, &CountingThread::counted, &receiver, [&](const QVector<int> &steps) {
        sum += steps.last() + worker.count();
        if (steps.first() == rounds - 1)
            QCoreApplication::quit();
    });
    worker.start();
    QCoreApplication::exec();
    worker.wait();
    return sum;
}

// The threads share only the arguments of the signal.
void handOverBySignal()
{
    CountingThread worker(true);
    QObject receiver;
    int sum = 0;
    QObject::connect(&worker, &CountingThread::counted, &receiver, [&sum](const QVector<int> &steps) {
        sum += steps.last();
        if (steps.first() == rounds - 1)
            QCoreApplication::quit();
    });
    worker.start();
    QCoreApplication::exec();
    worker.wait();
}

void readAfterTheEnd()
{
    CountingThread worker(false);
    worker.start();
    worker.wait();
    if (worker.count() != rounds)
        std::abort();
}

void readBeforeTheEnd()
{
    CountingThread worker(false);
    worker.start();
    while (worker.count() == 0 && !worker.isFinished())
        QThread::usleep(100);
    worker.wait();
}

void waitForCondition()
{
    QMutex mutex;
    QWaitCondition condition;
    bool ready = false;
    int value = 0;
    std::thread other([&] {
        const QMutexLocker locker(&mutex);
        value = 1;
        ready = true;
        condition.wakeOne();
    });
    {
        const QMutexLocker locker(&mutex);
        while (!ready)
            condition.wait(&mutex, 10);
        ++value;
    }
    other.join();
}

void lockInDifferentOrders()
{
    QMutex first;
    QMutex second;
    {
        const QMutexLocker outer(&first);
        const QMutexLocker inner(&second);
    }
    const QMutexLocker outer(&second);
    const QMutexLocker inner(&first);
}

struct Case
{
    const char *name;
    std::function<void()> run;
};

const Case cases[] = {
    {"share-without-lock", shareWithoutLock},
    {"share-under-different-locks", shareUnderDifferentLocks},
    {"share-under-one-lock", shareUnderOneLock},
    {"watch-worker-without-lock",
     [] {
         watchCounting(false);
     }},
    {"watch-worker-under-lock",
     [] {
         watchCounting(true);
     }},
    {"hand-over-by-signal", handOverBySignal},
    {"read-after-the-end", readAfterTheEnd},
    {"read-before-the-end", readBeforeTheEnd},
    {"wait-for-condition", waitForCondition},
    {"lock-in-different-orders", lockInDifferentOrders},
};

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    qRegisterMetaType<QVector<int>>();
    for (const Case &one : cases) {
        if (argc == 2 && std::strcmp(argv[1], one.name) == 0) {
            one.run();
            std::puts("done");
            return 0;
        }
    }
    std::fputs("no such case\n", stderr);
    return 2;
}

#include "raceprogram.moc"
