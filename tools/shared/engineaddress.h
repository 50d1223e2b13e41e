#pragma once

#include <QString>

/// Environment variable with the address of the sound engine.
constexpr char engineVariable[] = "ZELTACONNECT_ENGINE";

/// True for ADDRESS or ADDRESS:PORT with an IPv4 address in its usual form. For other texts the module uses
/// the address of the real engine.
bool isEngineAddress(const QString &text);

/// One line about a wrong value of the variable; empty when it is unset or an address.
QString engineVariableProblem();
