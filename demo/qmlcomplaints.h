#pragma once

#include <QStringList>

/// Collects what the QML engine complains about (a name that is not there, a binding loop) while still
/// printing it. A screen that runs with complaints is broken even if it looks right.
namespace QmlComplaints {

void collect();
QStringList collected();

} // namespace QmlComplaints
