#pragma once

namespace fuzz {

/// Ends the process with a crash, which is how a fuzzer tells of a finding, unless condition holds.
void require(bool condition, const char *what);

} // namespace fuzz
