#pragma once

#include <QByteArray>
#include <QStringList>
#include <QTemporaryDir>

namespace testsupport {

/// Puts a substitute for the ping program at the front of PATH. The destructor restores PATH.
class FakePing
{
public:
    /// Each attempt prints one of the outputs in turn; the last one is repeated. With the output "hang" the
    /// program sleeps for a minute instead.
    explicit FakePing(const QStringList &outputs);
    ~FakePing();
    Q_DISABLE_COPY(FakePing)

    /// The arguments of each attempt so far.
    QStringList calls() const;

private:
    QTemporaryDir m_directory;
    QByteArray m_previousPath;
};

/// Makes the machine's ping program available and records its calls. The destructor restores PATH.
class SystemPing
{
public:
    SystemPing();
    ~SystemPing();
    Q_DISABLE_COPY(SystemPing)

    /// The arguments of each attempt so far.
    QStringList calls() const;

private:
    QTemporaryDir m_directory;
    QByteArray m_previousPath;
};

/// Sets a PATH without programs, so that there is no ping. The destructor restores PATH.
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
