#pragma once

namespace testsupport {

/// How long a test waits for a condition that must become true. This is not a requirement on the product: the
/// machine may be slow and busy. The value is a third of the shortest CTest timeout, so that a test reports
/// its failure before CTest ends it.
constexpr int patienceMs = 100000;

} // namespace testsupport
