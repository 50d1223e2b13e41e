#pragma once

namespace fuzz {

/// Crashes the process if the condition is false. The fuzzer reports that as a finding.
void require(bool condition, const char *what);

} // namespace fuzz
