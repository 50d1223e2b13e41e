#pragma once

#include <QStringList>

/// The module's warnings about datagrams that the kernel dropped, for tests that send faster than the module
/// reads.
namespace testsupport {

/// The numbers in these warnings, in order.
QList<qint64> dropsIn(const QStringList &warnings);
/// All other warnings.
QStringList withoutDrops(const QStringList &warnings);
/// The number of datagrams that the kernel dropped for the sockets of this network namespace that are bound
/// to this port of any address, as those of modules are.
qint64 droppedDatagrams(quint16 port);

/// False where the module cannot learn of drops, as in an emulator of another processor.
bool canReportDrops();

} // namespace testsupport
