#include "support/fakeping.h"

#include <QFile>
#include <QTextStream>

namespace testsupport {

namespace {

const char searchPath[] = "PATH";

} // namespace

FakePing::FakePing(const QStringList &outputs)
    : m_previousPath(qgetenv(searchPath))
{
    for (int i = 0; i < outputs.size(); ++i) {
        QFile output(m_directory.filePath(QStringLiteral("output%1").arg(i + 1)));
        if (output.open(QIODevice::WriteOnly))
            output.write(outputs.at(i).toUtf8());
    }
    QFile script(m_directory.filePath(QStringLiteral("ping")));
    if (script.open(QIODevice::WriteOnly)) {
        QTextStream(&script) << "#!/bin/sh\n"
                             << "cd '" << m_directory.path() << "' || exit 1\n"
                             << "echo \"$*\" >>calls\n"
                             << "n=0; while read -r line; do n=$((n + 1)); done <calls\n"
                             << "[ $n -gt " << outputs.size() << " ] && n=" << outputs.size() << "\n"
                             << "read -r first <output$n\n"
                             << "[ \"$first\" = hang ] && exec sleep 60\n"
                             << "exec cat output$n\n";
        script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    qputenv(searchPath, m_directory.path().toLocal8Bit() + ':' + m_previousPath);
}

FakePing::~FakePing()
{
    qputenv(searchPath, m_previousPath);
}

QStringList FakePing::calls() const
{
    QFile calls(m_directory.filePath(QStringLiteral("calls")));
    if (!calls.open(QIODevice::ReadOnly))
        return QStringList();
    QStringList lines = QString::fromUtf8(calls.readAll()).split(QLatin1Char('\n'));
    lines.removeAll(QString());
    return lines;
}

SystemPing::SystemPing()
    : m_previousPath(qgetenv(searchPath))
{
    // The tests' own directory is the first one.
    qputenv(searchPath, m_previousPath.mid(m_previousPath.indexOf(':') + 1));
}

SystemPing::~SystemPing()
{
    qputenv(searchPath, m_previousPath);
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
