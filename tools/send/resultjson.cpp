#include "resultjson.h"

#include "filelook.h"

#include <QJsonArray>
#include <QSysInfo>

#include <initializer_list>

namespace {

QJsonValue textOrNull(const QString &text)
{
    return text.isEmpty() ? QJsonValue(QJsonValue::Null) : QJsonValue(text);
}

QJsonValue numberOrNull(double number)
{
    return number < 0.0 ? QJsonValue(QJsonValue::Null) : QJsonValue(number);
}

QString resultName(ExitStatus status)
{
    switch (status) {
    case ExitStatus::Sent: return QStringLiteral("ok");
    case ExitStatus::Failed: return QStringLiteral("failed");
    case ExitStatus::Misused: return QStringLiteral("misused");
    case ExitStatus::BadFile: return QStringLiteral("bad-file");
    case ExitStatus::NoEngine: return QStringLiteral("no-engine");
    case ExitStatus::NotNewer: return QStringLiteral("not-newer");
    case ExitStatus::NoModule: return QStringLiteral("no-module");
    case ExitStatus::FaultFound: return QStringLiteral("fault-found");
    case ExitStatus::Interrupted: return QStringLiteral("interrupted");
    }
    return {};
}

QString stateName(Finding::State state)
{
    switch (state) {
    case Finding::State::Ok: return QStringLiteral("ok");
    case Finding::State::Fault: return QStringLiteral("fault");
    case Finding::State::Skipped: return QStringLiteral("skipped");
    }
    return {};
}

struct Member
{
    QString name;
    QJsonValue value;
};

// In Qt 5.15, but not in Qt 5.12, the library has QJsonObject's own constructor from a list.
QJsonObject objectOf(std::initializer_list<Member> members)
{
    QJsonObject object;
    for (const Member &member : members)
        object.insert(member.name, member.value);
    return object;
}

template<class Items>
QJsonArray arrayOf(const Items &items)
{
    QJsonArray array;
    for (const auto &item : items)
        array.append(jsonOf(item));
    return array;
}

QJsonObject systemFacts()
{
    return objectOf({
        {QStringLiteral("architecture"), QSysInfo::currentCpuArchitecture()},
        {QStringLiteral("kernel"), QSysInfo::kernelVersion()},
        {QStringLiteral("operatingSystem"), QSysInfo::prettyProductName()},
        {QStringLiteral("qt"), QString::fromLatin1(qVersion())},
    });
}

} // namespace

QJsonValue jsonVersion(int version)
{
    return version < 0 ? QJsonValue(QJsonValue::Null) : QJsonValue(versionText(version));
}

QJsonObject jsonOf(const Finding &finding)
{
    return objectOf({
        {QStringLiteral("name"), finding.name},
        {QStringLiteral("state"), stateName(finding.state)},
        {QStringLiteral("finding"), finding.text},
        {QStringLiteral("mend"), textOrNull(finding.mend)},
    });
}

QJsonObject jsonOf(const FileResult &file)
{
    return objectOf({
        {QStringLiteral("path"), file.path},
        {QStringLiteral("kind"), textOrNull(file.kind)},
        {QStringLiteral("slot"), numberOrNull(file.slot)},
        {QStringLiteral("name"), textOrNull(file.name)},
        {QStringLiteral("bytes"), numberOrNull(double(file.bytes))},
        {QStringLiteral("looksLike"), textOrNull(file.looksLike)},
        {QStringLiteral("fileVersion"), jsonVersion(file.fileVersion)},
        {QStringLiteral("installedVersion"), jsonVersion(file.installedVersion)},
        {QStringLiteral("state"), stateName(file.state)},
        {QStringLiteral("status"), file.status ? QJsonValue(int(*file.status)) : QJsonValue()},
        {QStringLiteral("message"), textOrNull(file.message)},
        {QStringLiteral("seconds"), numberOrNull(file.seconds)},
        {QStringLiteral("bytesPerSecond"), numberOrNull(double(rateOf(file)))},
        {QStringLiteral("retransmissions"), numberOrNull(file.retransmissions)},
    });
}

QJsonObject jsonOf(const Result &result)
{
    return objectOf({
        {QStringLiteral("program"), QStringLiteral("zelta-send")},
        {QStringLiteral("version"), QStringLiteral(ZELTACONNECT_VERSION)},
        {QStringLiteral("action"), result.action},
        {QStringLiteral("status"), int(result.outcome.status)},
        {QStringLiteral("result"), resultName(result.outcome.status)},
        {QStringLiteral("message"), textOrNull(result.outcome.message)},
        {QStringLiteral("engine"), textOrNull(result.engine)},
        {QStringLiteral("warnings"), QJsonArray::fromStringList(result.warnings)},
        {QStringLiteral("files"), arrayOf(result.files)},
        {QStringLiteral("soundBankVersion"), textOrNull(result.soundBankVersion)},
        {QStringLiteral("triggerBankVersion"), textOrNull(result.triggerBankVersion)},
        {QStringLiteral("checks"), arrayOf(result.findings)},
        {QStringLiteral("system"), systemFacts()},
    });
}
