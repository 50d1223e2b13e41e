// Compiled into every test program: the environment that a test runs in, whoever starts it. Without it the
// module would talk to the address of a real sound engine.

#include <cstdlib>
#include <string>

#include <sys/stat.h>
#include <unistd.h>

namespace {

void setDefault(const char *name, const std::string &value)
{
    ::setenv(name, value.c_str(), 0);
}

struct TestEnvironment
{
    TestEnvironment()
    {
        // Not a default: an address that the user exported must not bring two test programs together.
        ::setenv("ZELTACONNECT_ENGINE", ZELTACONNECT_TEST_ENGINE, 1);
        setDefault("QT_QPA_PLATFORM", "offscreen");
        setDefault("QT_LOGGING_RULES", "*.debug=false;default.debug=true;zeltaconnect.*.debug=true");
        setDefault("LC_ALL", "C.UTF-8");

        const std::string runtimeDir = "/tmp/zeltaconnect-tests-" + std::to_string(::getuid());
        ::mkdir(runtimeDir.c_str(), S_IRWXU);
        setDefault("XDG_RUNTIME_DIR", runtimeDir);

        const char *path = std::getenv("PATH");
        const std::string binDir = ZELTACONNECT_TEST_BIN_DIR;
        ::setenv("PATH", (path ? binDir + ':' + path : binDir).c_str(), 1);
    }
};

const TestEnvironment testEnvironment;

} // namespace
