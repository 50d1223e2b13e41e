#pragma once

#include <QPair>
#include <QVector>

namespace simulated {

/// The positions of elements that both sequences have in the same order: pairs of indexes that increase on
/// both sides. As few elements as possible are left out if the sequences differ in at most a few hundred
/// elements. Time and memory are bounded for all others.
QVector<QPair<int, int>> commonPositions(const QVector<int> &left, const QVector<int> &right);

} // namespace simulated
