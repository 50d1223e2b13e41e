#pragma once

#include <QString>

namespace testsupport {

/// Gives the process a mount namespace with an empty /home, for files with fixed paths there. Returns the
/// reason of a failure, or an empty text. The process must still have a single thread.
QString enterPrivateHome();

} // namespace testsupport
