#include "wireshark/dissection.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace {

constexpr QLatin1String luaError = latin1("_ws.lua.error");

// A home directory in which the dissector is installed as a user installs it.
bool installDissector(const QString &home)
{
    const QString plugins = home + QStringLiteral("/.local/lib/wireshark/plugins");
    return QDir().mkpath(plugins) &&
           QFile::link(QStringLiteral(ZELTACONNECT_DISSECTOR_DIR), plugins + QStringLiteral("/zeltaconnect"));
}

QProcessEnvironment environmentWith(const QString &home)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), home);
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), home);
    for (const char *name : {"WIRESHARK_CONFIG_DIR", "WIRESHARK_PLUGIN_DIR", "WIRESHARK_DATA_DIR"})
        environment.remove(QLatin1String(name));
    return environment;
}

} // namespace

Dissection::Dissection(const QString &capture, const QStringList &fields, const QStringList &options,
                       int timeoutMs)
{
    const QTemporaryDir home;
    if (!home.isValid() || !installDissector(home.path())) {
        m_problem = QStringLiteral("the dissector could not be installed in ") + home.path();
        return;
    }
    const QStringList allFields = QStringList{info, protocol, text, reports, luaError} + fields;
    QStringList arguments{
        QStringLiteral("-n"),           QStringLiteral("-r"),     capture,
        QStringLiteral("-T"),           QStringLiteral("fields"), QStringLiteral("-E"),
        QStringLiteral("separator=/t"), QStringLiteral("-E"),     QStringLiteral("aggregator=|")};
    for (const QString &field : allFields)
        arguments << QStringLiteral("-e") << field;

    QProcess tshark;
    tshark.setProcessEnvironment(environmentWith(home.path()));
    tshark.start(QStringLiteral("tshark"), arguments + options);
    if (!tshark.waitForFinished(timeoutMs) || tshark.exitStatus() != QProcess::NormalExit ||
        tshark.exitCode() != 0) {
        m_problem = QStringLiteral("tshark: %1 %2")
                        .arg(tshark.errorString(), QString::fromUtf8(tshark.readAllStandardError()));
        return;
    }
    const QByteArray output = tshark.readAllStandardOutput();
    const QByteArray errors = tshark.readAllStandardError();
    if (errors.contains("Lua") || errors.contains("lua")) {
        m_problem = QString::fromUtf8(errors);
        return;
    }
    read(output, allFields);
}

void Dissection::read(const QByteArray &output, const QStringList &fields)
{
    const QList<QByteArray> lines = output.split('\n');
    m_frames.reserve(lines.size());
    for (int i = 0; i < lines.size() - 1; ++i) {
        const QStringList values = QString::fromUtf8(lines.at(i)).split(QLatin1Char('\t'));
        Frame frame;
        for (int j = 0; j < fields.size(); ++j)
            frame.insert(fields.at(j), values.value(j));
        if (!frame.value(luaError).isEmpty() && m_problem.isEmpty())
            m_problem = QStringLiteral("frame %1: Lua error %2").arg(i + 1).arg(frame.value(reports));
        m_frames.append(frame);
    }
}
