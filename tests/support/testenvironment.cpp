// Compiled into every test program: the environment that a test runs in, whoever starts it. Without it the
// module would talk to the address of a real sound engine.

#include <QLoggingCategory>
#include <QString>

#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <string>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

void setDefault(const char *name, const std::string &value)
{
    ::setenv(name, value.c_str(), 0);
}

// The same test may be running from another build tree. It has the same engine address, so this one waits for
// it to end: whoever holds the name, which is as wide as the address is, goes first.
void waitForTurn(const std::string &engine)
{
    sockaddr_un name{};
    name.sun_family = AF_UNIX;
    const std::string text = "zeltaconnect-test-" + engine;
    std::memcpy(name.sun_path + 1, text.data(), text.size());
    const auto size = socklen_t(offsetof(sockaddr_un, sun_path) + 1 + text.size());
    // Held until the process ends.
    const int descriptor = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    while (::bind(descriptor, reinterpret_cast<const sockaddr *>(&name), size) != 0 && errno == EADDRINUSE)
        ::usleep(20000);
}

struct TestEnvironment
{
    TestEnvironment()
    {
        if (ZELTACONNECT_TEST_OWN_ENGINE)
            waitForTurn(ZELTACONNECT_TEST_ENGINE);
        // Not a default: an address that the user exported must not bring two test programs together.
        ::setenv("ZELTACONNECT_ENGINE", ZELTACONNECT_TEST_ENGINE, 1);
        // Nor must what he has set for his own screen and log change what is tested.
        ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
        ::setenv("QT_LOGGING_RULES", "*.debug=false;default.debug=true;zeltaconnect.*.debug=true", 1);
        ::unsetenv("QT_MESSAGE_PATTERN");
        setDefault("LC_ALL", "C.UTF-8");
        // Qt Test ends a function after five minutes otherwise, and some take longer on a busy machine. How
        // long a whole program may take is CTest's to say.
        setDefault("QTEST_FUNCTION_TIMEOUT", "86400000");

        const std::string runtimeDir = "/tmp/zeltaconnect-tests-" + std::to_string(::getuid());
        ::mkdir(runtimeDir.c_str(), S_IRWXU);
        setDefault("XDG_RUNTIME_DIR", runtimeDir);

        // What is logged outside of the tests looks like what Qt Test prints within; a warning is one here as
        // there.
        qSetMessagePattern(QStringLiteral("%{if-warning}QWARN  : %{endif}%{if-critical}QSYSTEM: %{endif}"
                                          "%{if-fatal}QFATAL : %{endif}"
                                          "%{if-category}%{category}: %{endif}%{message}"));
        setDefault("QT_FORCE_STDERR_LOGGING", "1");

        const char *path = std::getenv("PATH");
        const std::string binDir = ZELTACONNECT_TEST_BIN_DIR;
        ::setenv("PATH", (path ? binDir + ':' + path : binDir).c_str(), 1);
    }
};

// Before main() and everything else that might ask for it.
const TestEnvironment testEnvironment; // clazy:exclude=non-pod-global-static

} // namespace
