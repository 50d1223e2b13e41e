// Sends files to the drum module's sound engine without a screen.

#include "jsonreporter.h"
#include "options.h"
#include "program.h"
#include "textreporter.h"

#include <QCoreApplication>

#include <memory>
#include <optional>

namespace {

std::unique_ptr<Reporter> reporterFor(const Options &options)
{
    if (options.json)
        return std::make_unique<JsonReporter>(options.quiet);
    return std::make_unique<TextReporter>(options);
}

bool needsApplication(Options::Action action)
{
    return action != Options::Action::Help && action != Options::Action::Version &&
           action != Options::Action::Refuse;
}

} // namespace

int main(int argc, char *argv[])
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    const Options options = parseOptions(arguments);
    const std::unique_ptr<Reporter> reporter = reporterFor(options);
    std::optional<QCoreApplication> application;
    if (needsApplication(options.action))
        application.emplace(argc, argv);

    Program program(options, *reporter);
    const Result result = program.run();
    reporter->finished(result);
    return int(result.outcome.status);
}
