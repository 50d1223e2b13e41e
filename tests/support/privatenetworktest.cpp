#include "support/privatenetworktest.h"

namespace testsupport {

namespace {

const char variable[] = "ZELTACONNECT_ENGINE";
// Nobody listens there.
const char harmlessAddress[] = "127.20.21.99";

} // namespace

void PrivateNetworkTest::init()
{
    QVERIFY(inPrivateNetwork());
    qunsetenv(variable);
}

// Even the mishap of a test must not leave the fixed address behind for anything that runs later.
void PrivateNetworkTest::cleanup()
{
    qputenv(variable, harmlessAddress);
}

} // namespace testsupport
