#include "textreporter.h"

#include "filelook.h"
#include "options.h"
#include "summarytable.h"

#include <QTextStream>

namespace {

constexpr int stateWidth = 8;
constexpr int nameWidth = 16;

void printError(const QString &line)
{
    QTextStream(stderr) << "zelta-send: " << line << '\n';
}

QString word(Finding::State state)
{
    switch (state) {
    case Finding::State::Ok: return QStringLiteral("ok");
    case Finding::State::Fault: return QStringLiteral("FAULT");
    case Finding::State::Skipped: return QStringLiteral("skipped");
    }
    return {};
}

} // namespace

TextReporter::TextReporter(const Options &options)
    : m_display(options.progress)
    , m_isQuiet(options.quiet)
    , m_keepsGoing(options.keepGoing)
{}

void TextReporter::say(const QString &line)
{
    if (!m_isQuiet)
        m_display.say(line);
}

void TextReporter::answer(const QString &line)
{
    m_display.say(line);
}

void TextReporter::error(const QString &line)
{
    m_display.close();
    printError(line);
}

// On standard error, so that scripts can still parse the lines of a transfer.
void TextReporter::warning(const QString &line)
{
    m_display.close();
    printError(QStringLiteral("warning: ") + line);
}

void TextReporter::finding(const Finding &finding)
{
    const QString start = word(finding.state).leftJustified(stateWidth);
    answer(start + finding.name.leftJustified(nameWidth) + finding.text);
    if (!finding.mend.isEmpty())
        answer(QString(stateWidth, QLatin1Char(' ')) + QStringLiteral("mend: ") + finding.mend);
}

void TextReporter::fileStarted(const FileResult &file)
{
    say(QStringLiteral("sending %1, %2 bytes, as %3")
            .arg(file.path)
            .arg(file.bytes)
            .arg(QLatin1String(kindNamed(file.kind)->noun)));
    m_display.begin(file.bytes);
}

void TextReporter::progress(const FileResult & /*file*/, qint64 bytes)
{
    if (!m_isQuiet)
        m_display.progress(bytes);
}

void TextReporter::busy(const QString &activity)
{
    if (!m_isQuiet)
        m_display.busy(activity);
}

void TextReporter::allSent(const FileResult & /*file*/, const QString &activity)
{
    if (!m_display.isTerminal())
        say(activity);
}

void TextReporter::newVersion(const FileResult &file)
{
    say(QStringLiteral("version %1 replaces %2")
            .arg(versionText(file.fileVersion), versionText(file.installedVersion)));
}

void TextReporter::fileEnded(const FileResult &file)
{
    if (file.state == FileResult::State::Sent) {
        say(QStringLiteral("%1: %2, %3 bytes in %4 s, %5, retransmissions: %6")
                .arg(file.path, file.message)
                .arg(file.bytes)
                .arg(file.seconds, 0, 'f', 1)
                .arg(m_display.rate(file.bytes))
                .arg(file.retransmissions));
        return;
    }
    // Otherwise the failure ends the run, and is its error.
    if (m_keepsGoing)
        error(QStringLiteral("%1: %2").arg(file.path, file.message));
}

void TextReporter::finished(const Result &result)
{
    if (result.files.size() > 1 && result.action != actionName(Options::Action::Inspect)) {
        const QStringList table = summaryTable(result.files);
        for (const QString &line : table)
            say(line);
    }
    m_display.close();
    if (result.outcome.status != ExitStatus::Sent && !result.outcome.message.isEmpty())
        printError(result.outcome.message);
}
