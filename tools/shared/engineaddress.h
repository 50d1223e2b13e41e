#pragma once

#include <QString>

/// The variable that tells the module where the sound engine is.
constexpr char engineVariable[] = "ZELTACONNECT_ENGINE";

/// ADDRESS or ADDRESS:PORT, IPv4 in its usual form, as the module reads it. For anything else the module
/// would fall back on the address of the real engine.
bool isEngineAddress(const QString &text);

/// What is wrong with the variable, in one line; empty when it is unset or names an address.
QString engineVariableProblem();
