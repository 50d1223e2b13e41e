#include "jsonreporter.h"

#include "resultjson.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>

namespace {

constexpr int progressMs = 100;

// The log messages of Qt and the module, from any thread.
bool logIsQuiet = false;

void writeLine(std::FILE *stream, const QJsonObject &object)
{
    const QByteArray line = QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
    // Errors are ignored. Without a reader the file is still sent, and the exit status reports the result.
    static_cast<void>(std::fwrite(line.constData(), 1, std::size_t(line.size()), stream));
    static_cast<void>(std::fflush(stream));
}

QJsonObject event(const char *name)
{
    QJsonObject event;
    event.insert(QStringLiteral("event"), QLatin1String(name));
    return event;
}

QJsonObject fileEvent(const char *name, const FileResult &file)
{
    QJsonObject object = event(name);
    object.insert(QStringLiteral("path"), file.path);
    return object;
}

QJsonObject messageEvent(const char *name, const QString &message)
{
    QJsonObject object = event(name);
    object.insert(QStringLiteral("message"), message);
    return object;
}

void writeLog(QtMsgType /*type*/, const QMessageLogContext & /*context*/, const QString &text)
{
    if (!logIsQuiet)
        writeLine(stderr, messageEvent("log", text));
}

} // namespace

JsonReporter::JsonReporter(bool isQuiet)
    : m_isQuiet(isQuiet)
{
    logIsQuiet = isQuiet;
    qInstallMessageHandler(writeLog);
    m_since.start();
}

JsonReporter::~JsonReporter()
{
    qInstallMessageHandler(nullptr);
}

void JsonReporter::write(const QJsonObject &event) const
{
    if (!m_isQuiet)
        writeLine(stderr, event);
}

// The result has all of them.
void JsonReporter::answer(const QString & /*line*/) {}
void JsonReporter::error(const QString & /*line*/) {}
void JsonReporter::busy(const QString & /*activity*/) {}

void JsonReporter::warning(const QString &line)
{
    write(messageEvent("warning", line));
}

void JsonReporter::finding(const Finding &finding)
{
    QJsonObject object = jsonOf(finding);
    object.insert(QStringLiteral("event"), QStringLiteral("check"));
    write(object);
}

void JsonReporter::fileStarted(const FileResult &file)
{
    m_since.start();
    m_writtenAt = -progressMs;
    m_writtenBytes = -1;
    QJsonObject object = fileEvent("start", file);
    object.insert(QStringLiteral("kind"), file.kind);
    object.insert(QStringLiteral("bytes"), double(file.bytes));
    write(object);
}

void JsonReporter::progress(const FileResult &file, qint64 bytes)
{
    const qint64 elapsed = m_since.elapsed();
    if (bytes == m_writtenBytes || (elapsed < m_writtenAt + progressMs && bytes < file.bytes))
        return;
    m_writtenAt = elapsed;
    m_writtenBytes = bytes;
    QJsonObject object = fileEvent("progress", file);
    object.insert(QStringLiteral("bytesSent"), double(bytes));
    object.insert(QStringLiteral("bytes"), double(file.bytes));
    object.insert(QStringLiteral("seconds"), double(elapsed) / 1000.0);
    write(object);
}

void JsonReporter::allSent(const FileResult &file, const QString & /*activity*/)
{
    write(fileEvent("all-sent", file));
}

void JsonReporter::newVersion(const FileResult &file)
{
    QJsonObject object = fileEvent("new-version", file);
    object.insert(QStringLiteral("fileVersion"), jsonVersion(file.fileVersion));
    object.insert(QStringLiteral("installedVersion"), jsonVersion(file.installedVersion));
    write(object);
}

void JsonReporter::fileEnded(const FileResult &file)
{
    QJsonObject object = jsonOf(file);
    object.insert(QStringLiteral("event"), QStringLiteral("end"));
    write(object);
}

void JsonReporter::finished(const Result &result)
{
    writeLine(stdout, jsonOf(result));
}
