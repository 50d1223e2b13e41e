#pragma once

#include "failures/judgedtransfer.h"
#include "transfer/session.h"

#include <QMap>

#include <functional>
#include <memory>
#include <vector>

/// A file of one kind, with a module that sends it and an engine that receives it.
struct Sending
{
    TransferKind kind;
    QString path;
    QByteArray content;
    std::unique_ptr<Station> station;
};
using Sendings = std::vector<Sending>;

/// How many transfers had which result.
using Outcomes = QMap<JudgedTransfer::Result, int>;

/// The kinds whose end signal carries the status, without the sound bank: the wait for its end takes up to
/// ten minutes.
std::vector<TransferKind> judgedKinds();

/// The name of the signal that reports the progress of that kind, empty for none.
QByteArray progressSignal(const TransferKind &kind);

/// One file of each of these kinds. The engines listen at consecutive ports from firstPort on.
Sendings makeSendings(EngineThread &thread, const TestFiles &files, quint16 firstPort,
                      const std::function<int(const TransferKind &kind)> &packets);

/// Sends all files of all groups at the same time and waits until all transfers have ended. Calls disturb
/// once, when all transfers run. Returns the outcomes of each group. All are Silent if a transfer did not
/// end, or ended before disturb was called.
std::vector<Outcomes> sendAll(const std::vector<Sendings> &groups, const std::function<void()> &disturb = {});

/// Checks that every transfer reported exactly one end, and that none reported success for a file that did
/// not arrive.
void verifyHonest(const char *name, const Outcomes &outcomes);

/// Sends all files again and checks that each arrives.
void verifyAllArrive(const std::vector<Sendings> &groups);
