// Files on a network that drops datagrams. The file arrives, or QML is notified that it did not. The next
// file arrives when the network works again.

#include "faultyline.h"
#include "sendings.h"

#include "support/logcatcher.h"
#include "support/privatenetworktest.h"
#include "transfer/session.h"

#include <QTest>

#include <array>
#include <vector>

using namespace testsupport;
using Direction = EngineNetwork::Direction;
using Result = JudgedTransfer::Result;

namespace {

#ifdef ZELTACONNECT_LONG_CASES
constexpr int rounds = 5;
#else
constexpr int rounds = 1;
#endif
constexpr quint16 firstPort = 20000;

struct Loss
{
    const char *name;
    int percent;
    Direction direction;
    int packets; ///< fewer for more loss, because the module pauses for seconds before each resend
};

constexpr std::array<Loss, 9> losses{{
    {"1 of 100 to the engine", 1, Direction::ToEngine, 300},
    {"5 of 100 to the engine", 5, Direction::ToEngine, 100},
    {"20 of 100 to the engine", 20, Direction::ToEngine, 30},
    {"1 of 100 to the module", 1, Direction::ToModule, 300},
    {"5 of 100 to the module", 5, Direction::ToModule, 100},
    {"20 of 100 to the module", 20, Direction::ToModule, 30},
    {"1 of 100 both ways", 1, Direction::Both, 300},
    {"5 of 100 both ways", 5, Direction::Both, 100},
    {"20 of 100 both ways", 20, Direction::Both, 30},
}};

} // namespace

class FaultyTransfersTest : public PrivateNetworkTest
{
    Q_OBJECT

private Q_SLOTS:
    void datagramsGetLost();
};

void FaultyTransfersTest::datagramsGetLost()
{
    const QString noLoss = EngineNetwork::noLossReason();
    if (!noLoss.isEmpty())
        QSKIP(qPrintable(noLoss));
    EngineNetwork network;
    QVERIFY2(network.errorString().isEmpty(), qPrintable(network.errorString()));
    const LogCatcher log;
    const TestFiles files;
    FarEngineThread thread(network);
    std::vector<Sendings> groups;
    quint16 port = firstPort;
    for (const Loss &loss : losses) {
        groups.push_back(
            makeSendings(thread, files, port, [&loss](const TransferKind &) { return loss.packets; }));
        const auto next = quint16(port + groups.back().size());
        QCOMPARE(network.loseDatagrams(loss.percent, loss.direction, port, quint16(next - 1)), QString());
        port = next;
    }

    std::array<Outcomes, losses.size()> totals;
    for (int round = 0; round < rounds; ++round) {
        const std::vector<Outcomes> outcomes = sendAll(groups);
        for (std::size_t group = 0; group < outcomes.size(); ++group) {
            for (auto outcome = outcomes[group].begin(); outcome != outcomes[group].end(); ++outcome)
                totals.at(group)[outcome.key()] += outcome.value();
        }
    }
    for (std::size_t group = 0; group < losses.size(); ++group) {
        verifyHonest(losses.at(group).name, totals.at(group));
        if (QTest::currentTestFailed())
            return;
    }
    // Datagrams to the module answer packets, and most packets need no answer. It is improbable that the
    // necessary answer is dropped for each of these files.
    int arrived = 0;
    for (std::size_t group = 0; group < losses.size(); ++group) {
        if (losses.at(group).direction == Direction::ToModule)
            arrived += totals.at(group)[Result::Arrived];
    }
    QVERIFY(arrived > 0);
    QCOMPARE(network.loseNothing(), QString());
    verifyAllArrive(groups);
    QCOMPARE(log.warnings(), QStringList());
}

int main(int argc, char **argv)
{
    return runInPrivateNetwork<FaultyTransfersTest>(argc, argv);
}

#include "tst_faultytransfers.moc"
