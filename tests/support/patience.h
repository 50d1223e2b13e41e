#pragma once

namespace testsupport {

/// How long a test waits for what has to come. Not for it to come in time: a machine may be slow and busy.
constexpr int patienceMs = 120000;

} // namespace testsupport
