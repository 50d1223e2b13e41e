// Linked into each test program: sets the environment of the test, however it is started. Without it the
// module would send to the address of a real sound engine.

#include "support/testprogram.h"

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

// The same test can run from another build tree with the same engine address. The program that binds this
// name runs first; the other one waits. Like the address, the name is unique in the network namespace.
void waitForTurn(const std::string &engine)
{
    sockaddr_un name{};
    name.sun_family = AF_UNIX;
    const std::string text = "zeltaconnect-test-" + engine;
    std::memcpy(name.sun_path + 1, text.data(), text.size());
    const auto size = socklen_t(offsetof(sockaddr_un, sun_path) + 1 + text.size());
    // Closed when the process ends.
    const int descriptor = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    while (::bind(descriptor, reinterpret_cast<const sockaddr *>(&name), size) != 0 && errno == EADDRINUSE)
        ::usleep(20000);
}

struct TestEnvironment
{
    TestEnvironment()
    {
        if (testsupport::hasOwnEngine)
            waitForTurn(testsupport::engineAddress);
        // Set even if the user has exported an address: two test programs must not use the same one.
        ::setenv("ZELTACONNECT_ENGINE", testsupport::engineAddress, 1);
        // The user's settings for the screen and the log must not change the test.
        ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
        ::setenv("QT_LOGGING_RULES", "*.debug=false;default.debug=true;zeltaconnect.*.debug=true", 1);
        ::unsetenv("QT_MESSAGE_PATTERN");
        setDefault("LC_ALL", "C.UTF-8");
        // Qt Test ends a function after five minutes by default. CTest limits the whole program instead.
        setDefault("QTEST_FUNCTION_TIMEOUT", "86400000");

        const std::string runtimeDir = "/tmp/zeltaconnect-tests-" + std::to_string(::getuid());
        ::mkdir(runtimeDir.c_str(), S_IRWXU);
        setDefault("XDG_RUNTIME_DIR", runtimeDir);

        // Messages before and after the tests get the form of messages that Qt Test prints.
        qSetMessagePattern(QStringLiteral("%{if-warning}QWARN  : %{endif}%{if-critical}QSYSTEM: %{endif}"
                                          "%{if-fatal}QFATAL : %{endif}"
                                          "%{if-category}%{category}: %{endif}%{message}"));
        setDefault("QT_FORCE_STDERR_LOGGING", "1");

        const char *path = std::getenv("PATH");
        const std::string binDir = testsupport::binFolder;
        ::setenv("PATH", (path ? binDir + ':' + path : binDir).c_str(), 1);
    }
};

// Constructed before main().
const TestEnvironment testEnvironment; // clazy:exclude=non-pod-global-static

} // namespace
