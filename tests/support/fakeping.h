#pragma once

#include <QByteArray>
#include <QStringList>
#include <QTemporaryDir>

namespace testsupport {

/// Puts a ping program of the test's own making in front of the search path, as long as it lives.
class FakePing
{
public:
    /// The program prints output, once per attempt; the last entry holds for all further attempts. It knows
    /// one more trick: the entry "hang" makes it sleep for a minute instead.
    explicit FakePing(const QStringList &outputs);
    ~FakePing();
    Q_DISABLE_COPY(FakePing)

    /// Argument line of every attempt so far.
    QStringList calls() const;

private:
    QTemporaryDir m_directory;
    QByteArray m_previousPath;
};

/// Lets the machine's own ping be found, as long as it lives, and keeps count of it.
class SystemPing
{
public:
    SystemPing();
    ~SystemPing();
    Q_DISABLE_COPY(SystemPing)

    /// Argument line of every attempt so far.
    QStringList calls() const;

private:
    QTemporaryDir m_directory;
    QByteArray m_previousPath;
};

/// An empty search path, as long as it lives: there is no ping at all.
class NoPing
{
public:
    NoPing();
    ~NoPing();
    Q_DISABLE_COPY(NoPing)

private:
    QTemporaryDir m_directory;
    QByteArray m_previousPath;
};

} // namespace testsupport
