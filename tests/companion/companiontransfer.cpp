#include "companiontransfer.h"

#include <QFile>
#include <QQmlComponent>
#include <QQmlEngine>

using ReceivedOutcome = simulated::ReceivedFile::Outcome;

CompanionTransfer::CompanionTransfer(QQmlEngine &qml, EngineThread &thread, const QString &address,
                                     const TransferKind &kind, const QString &mode, const QString &path,
                                     int timeoutMs)
    : m_kind(kind)
    , m_mode(mode.section(QLatin1Char('='), 0, 0))
    , m_modeText(mode)
    , m_path(path)
    , m_timeoutMs(timeoutMs)
    , m_engine(thread, address)
{
    QQmlComponent component(&qml,
                            QUrl::fromLocalFile(QStringLiteral(COMPANION_TEST_DIR "/TransferScreen.qml")));
    m_screen.reset(component.create());
    if (!m_screen)
        qFatal("%s", qPrintable(component.errorString()));
}

CompanionTransfer::~CompanionTransfer() = default;

void CompanionTransfer::start()
{
    if (!m_engine.fail(m_modeText))
        qFatal("%s is not a failure mode", qPrintable(m_modeText));
    if (m_mode.endsWith(QStringLiteral("-query-reply")))
        m_engine.clearFailuresAfterQuery();
    const OutcomeKind &kind = outcomeKindOf(m_kind.content);
    QMetaObject::invokeMethod(m_screen.get(), "send", Q_ARG(QVariant, QString::fromLatin1(kind.enumerator)),
                              Q_ARG(QVariant, m_path));
    m_since.start();
}

bool CompanionTransfer::isOver()
{
    return m_screen->property("ends").toInt() > 0 || m_since.hasExpired(m_timeoutMs);
}

QString CompanionTransfer::verdict()
{
    if (m_screen->property("ends").toInt() != 1)
        return QStringLiteral("%1 ends after %2 ms").arg(text("ends")).arg(m_since.elapsed());
    const QVector<SoundEngine::ReceivedFile> files = m_engine.files();
    const bool arrived = files.size() == 1 && files.first().outcome == ReceivedOutcome::Whole;
    QFile file(m_path);
    if (arrived && (!file.open(QIODevice::ReadOnly) || files.first().data != file.readAll()))
        return QStringLiteral("the engine received a different file");

    const QString seen =
        QStringLiteral("%1, %2: %3; states: %4; %5")
            .arg(text("stateName"), text("reasonName"), text("message"), text("states"),
                 arrived ? QStringLiteral("the file arrived") : QStringLiteral("the file did not arrive"));
    if (outcomeVaries(m_mode)) {
        const bool success = text("stateName") == QLatin1String("Done");
        return success == arrived ? QString() : seen;
    }
    const Outcome &expected = *outcomeOf(outcomeKindOf(m_kind.content), m_mode);
    const bool success = expected.state == QLatin1String("Done");
    if (text("stateName") != expected.state || text("reasonName") != expected.reason ||
        !text("message").endsWith(expected.message) || arrived != expected.arrives ||
        success !=
            (m_screen->property("progress").toDouble() == 1.0 && m_screen->property("successes") == 1) ||
        !text("states").startsWith(QStringLiteral("Waiting ")))
        return seen;
    const QStringList violations = m_engine.violations();
    return violations.join(QLatin1Char('\n'));
}
