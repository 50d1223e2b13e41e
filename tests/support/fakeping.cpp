#include "support/fakeping.h"

#include <QFile>

namespace testsupport {

namespace {

const char searchPath[] = "PATH";

// Writes a ping script that records its arguments and then runs the commands.
void writeScript(const QTemporaryDir &directory, const QByteArray &commands)
{
    QFile script(directory.filePath(QStringLiteral("ping")));
    if (!script.open(QIODevice::WriteOnly))
        return;
    script.write("#!/bin/sh\necho \"$*\" >>\"${0%/*}/calls\"\n" + commands);
    script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

QStringList recordedCalls(const QTemporaryDir &directory)
{
    QFile calls(directory.filePath(QStringLiteral("calls")));
    if (!calls.open(QIODevice::ReadOnly))
        return QStringList();
    QStringList lines = QString::fromUtf8(calls.readAll()).split(QLatin1Char('\n'));
    lines.removeAll(QString());
    return lines;
}

} // namespace

FakePing::FakePing(const QStringList &outputs)
    : m_previousPath(qgetenv(searchPath))
{
    for (int i = 0; i < outputs.size(); ++i) {
        QFile output(m_directory.filePath(QStringLiteral("output%1").arg(i + 1)));
        if (output.open(QIODevice::WriteOnly))
            output.write(outputs.at(i).toUtf8());
    }
    writeScript(m_directory, R"(
cd "${0%/*}" || exit 1
n=0; while read -r line; do n=$((n + 1)); done <calls
until [ -e output$n ]; do n=$((n - 1)); done
read -r first <output$n
[ "$first" = hang ] && exec sleep 60
exec cat output$n
)");
    qputenv(searchPath, m_directory.path().toLocal8Bit() + ':' + m_previousPath);
}

FakePing::~FakePing()
{
    qputenv(searchPath, m_previousPath);
}

QStringList FakePing::calls() const
{
    return recordedCalls(m_directory);
}

SystemPing::SystemPing()
    : m_previousPath(qgetenv(searchPath))
{
    // The first directory of PATH contains the substitute of the tests.
    const QByteArray systemPath = m_previousPath.mid(m_previousPath.indexOf(':') + 1);
    writeScript(m_directory, "PATH='" + systemPath + "' exec ping \"$@\"\n");
    qputenv(searchPath, m_directory.path().toLocal8Bit() + ':' + systemPath);
}

SystemPing::~SystemPing()
{
    qputenv(searchPath, m_previousPath);
}

QStringList SystemPing::calls() const
{
    return recordedCalls(m_directory);
}

NoPing::NoPing()
    : m_previousPath(qgetenv(searchPath))
{
    qputenv(searchPath, m_directory.path().toLocal8Bit());
}

NoPing::~NoPing()
{
    qputenv(searchPath, m_previousPath);
}

} // namespace testsupport
