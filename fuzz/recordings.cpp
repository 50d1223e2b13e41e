// Files with any content as recordings.

#include "fuzz/support/require.h"
#include "simulator/comparison.h"
#include "simulator/recording.h"
#include "simulator/scenario.h"
#include "simulator/scenariowriter.h"

#include <cstdint>
#include <cstdio>

using namespace fuzz;
using namespace simulated;

namespace {

constexpr int largestDatagram = 65507;

bool readInput(const std::uint8_t *data, std::size_t size, Recording *recording)
{
    // The stream only reads, although the function takes a pointer to bytes that can be written.
    std::FILE *file = ::fmemopen(const_cast<std::uint8_t *>(data), size, "rb"); // NOLINT
    require(file != nullptr, "an input can be opened");
    QString problem;
    const bool isGood = recording->read(file, &problem);
    require(isGood == problem.isEmpty(), "a refused recording has a reason");
    require(!problem.contains(QLatin1Char('\n')), "the reason is one line");
    require(isGood == (recording->size() > 0), "a recording has a datagram, a refused one has none");
    return isGood;
}

void checkDatagrams(const Recording &recording, std::size_t size)
{
    qint64 bytes = 0;
    qint64 previous = 0;
    int fromEngine = 0;
    for (int i = 0; i < recording.size(); ++i) {
        require(recording.datagram(i).size() <= largestDatagram, "a datagram has at most 65507 bytes");
        require(recording.time(i) >= previous, "time does not go back");
        previous = recording.time(i);
        bytes += recording.datagram(i).size();
        fromEngine += recording.isFromEngine(i) ? 1 : 0;
    }
    require(bytes <= qint64(size), "the datagrams are not larger than their file");
    require(recording.duration() == previous, "the duration is the time of the last datagram");
    require(fromEngine == recording.countFromEngine(), "the datagrams of the engine are counted");
}

void checkScenario(const Recording &recording)
{
    QString problem;
    const QStringList lines = scenarioOf(recording, &problem);
    require(lines.isEmpty() != problem.isEmpty(), "there is a scenario or a reason");
    Scenario scenario;
    require(scenario.parse(lines.join(QLatin1Char('\n')), &problem),
            "a scenario that was written can be read");
}

void checkComparison(const Recording &recording)
{
    Comparison same(recording);
    Comparison other(recording);
    for (int i = 0; i < recording.size(); ++i) {
        if (!recording.isFromEngine(i))
            same.receive(recording.datagram(i));
        else
            other.receive(recording.datagram(i));
    }
    require(same.report().differences() == 0, "a recording does not differ from itself");
    require(same.isComplete(), "a recording contains all of itself");
    const Comparison::Report report = other.report();
    require(report.lines.size() >= report.differences(), "each difference has a line");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    // A stream in memory cannot be empty. The tests cover an empty file.
    if (size == 0)
        return 0;
    Recording recording;
    if (!readInput(data, size, &recording))
        return 0;
    checkDatagrams(recording, size);
    checkScenario(recording);
    checkComparison(recording);
    return 0;
}
