#pragma once

/// Records SIGINT and SIGTERM for a program that is busy with blocking calls, in place of QuitOnSignal, which
/// needs an event loop. Only one object may exist at a time.
class Interruption
{
public:
    enum class SecondSignal { EndsProgram, IsRecorded };

    explicit Interruption(SecondSignal second);
    ~Interruption();
    Interruption(const Interruption &) = delete;
    Interruption &operator=(const Interruption &) = delete;

    /// A signal has arrived. Neither an event loop nor a wait for a process ends by itself then. Any thread.
    static bool isRequested();
};
