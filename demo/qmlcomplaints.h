#pragma once

#include <QStringList>

/// Collects and prints the warnings of the QML engine, such as an unknown name or a binding loop. A screen
/// that runs with warnings has errors, even if it looks right.
namespace QmlComplaints {

void collect();
QStringList collected();

} // namespace QmlComplaints
