#include "support/privatenetworktest.h"

namespace testsupport {

namespace {

const char variable[] = "ZELTACONNECT_ENGINE";
// No engine listens at this address.
const char harmlessAddress[] = "127.20.21.99";

} // namespace

void PrivateNetworkTest::init()
{
    QVERIFY(inPrivateNetwork());
    qunsetenv(variable);
}

// Code that runs after a test must not use the fixed address, even if the test failed.
void PrivateNetworkTest::cleanup()
{
    qputenv(variable, harmlessAddress);
}

} // namespace testsupport
