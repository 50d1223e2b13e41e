#include "sendings.h"

#include <QTest>

#include <algorithm>

using Result = JudgedTransfer::Result;

namespace {

constexpr int timeoutMs = 120000;
constexpr int progressSignals = 30;

bool isUnderWay(const Sending &sending)
{
    return sending.station->recorder.count(progressSignal(sending.kind).constData()) > progressSignals;
}

bool allAreUnderWay(const Sendings &sendings)
{
    return std::all_of(sendings.begin(), sendings.end(), isUnderWay);
}

using Transfers = std::vector<std::unique_ptr<JudgedTransfer>>;

bool allAreOver(const Transfers &transfers)
{
    return std::all_of(transfers.begin(), transfers.end(),
                       [](const auto &transfer) { return transfer->isOver(); });
}

bool noneIsOver(const Transfers &transfers)
{
    return std::none_of(transfers.begin(), transfers.end(),
                        [](const auto &transfer) { return transfer->isOver(); });
}

} // namespace

std::vector<TransferKind> judgedKinds()
{
    std::vector<TransferKind> kinds;
    const QVector<TransferKind> all = quickKinds();
    for (const TransferKind &kind : all) {
        if (kind.content != QByteArray("SB") && kind.complete.contains(QStringLiteral("%1")))
            kinds.push_back(kind);
    }
    return kinds;
}

QByteArray progressSignal(const TransferKind &kind)
{
    return kind.progress.section(QLatin1Char('('), 0, 0).toLatin1();
}

Sendings makeSendings(EngineThread &thread, const TestFiles &files, quint16 firstPort,
                      const std::function<int(const TransferKind &kind)> &packets)
{
    Sendings sendings;
    quint16 port = firstPort;
    for (const TransferKind &kind : judgedKinds()) {
        Sending sending;
        sending.kind = kind;
        sending.content = kind.file(packets(kind) * kind.chunkBytes, port);
        sending.path = files.write(QStringLiteral("%1/%2").arg(port).arg(kind.fileName), sending.content);
        sending.station = std::make_unique<Station>(thread, QStringLiteral("172.20.21.22"), port);
        sendings.push_back(std::move(sending));
        ++port;
    }
    return sendings;
}

// All transfers run at the same time, because they mostly wait for acknowledgements that do not arrive.
std::vector<Outcomes> sendAll(const std::vector<Sendings> &groups, const std::function<void()> &disturb)
{
    std::vector<Transfers> transfers(groups.size());
    for (std::size_t group = 0; group < groups.size(); ++group) {
        for (const Sending &sending : groups[group]) {
            transfers[group].push_back(std::make_unique<JudgedTransfer>(
                *sending.station, sending.kind, sending.path, sending.content, timeoutMs));
            transfers[group].back()->start();
        }
    }
    bool complete = true;
    if (disturb) {
        complete = QTest::qWaitFor([&] { return std::all_of(groups.begin(), groups.end(), allAreUnderWay); },
                                   timeoutMs) &&
                   std::all_of(transfers.begin(), transfers.end(), noneIsOver);
        disturb();
    }
    complete = QTest::qWaitFor([&] { return std::all_of(transfers.begin(), transfers.end(), allAreOver); },
                               timeoutMs * 2) &&
               complete;
    std::vector<Outcomes> outcomes(groups.size());
    for (std::size_t group = 0; group < groups.size(); ++group) {
        for (const auto &transfer : transfers[group])
            ++outcomes[group][complete ? transfer->result() : Result::Silent];
    }
    return outcomes;
}

void verifyHonest(const char *name, const Outcomes &outcomes)
{
    qInfo().nospace() << name << ": " << outcomes[Result::Arrived] << " arrived, " << outcomes[Result::Failed]
                      << " failed and reported so, " << outcomes[Result::Unproven]
                      << " failed without an acknowledgement, " << outcomes[Result::FalseFailure]
                      << " arrived with the acknowledgement lost";
    QVERIFY2(outcomes[Result::FalseSuccess] == 0, name);
    QVERIFY2(outcomes[Result::Silent] == 0, name);
}

void verifyAllArrive(const std::vector<Sendings> &groups)
{
    const std::vector<Outcomes> outcomes = sendAll(groups);
    for (std::size_t group = 0; group < groups.size(); ++group) {
        QCOMPARE(outcomes[group][Result::Arrived], int(groups[group].size()));
        for (const Sending &sending : groups[group])
            QCOMPARE(sending.station->engine.violations(), QStringList());
    }
}
