#include "fuzz/support/module.h"

#include "fuzz/support/producttime.h"
#include "fuzz/support/replace.h"
#include "fuzz/support/require.h"
#include "fuzz/support/wire.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cstdarg>
#include <cstdlib>
#include <string>

#include <fcntl.h>
#include <sys/types.h>

// The start-up time of this program does not matter. clazy:excludeall=non-pod-global-static

namespace fuzz {

namespace {

constexpr char cataloguePrefix[] = "/home/.local/share/E-Drum/";

// Not a Qt type, because the replacement of open64() reads it.
std::string catalogueDirectory;

void ignoreMessage(QtMsgType /*type*/, const QMessageLogContext & /*context*/, const QString & /*text*/) {}

void setEnvironment()
{
    // Overwrites the environment, so that nothing reaches a real engine.
    ::setenv("ZELTACONNECT_ENGINE", ZELTACONNECT_FUZZ_ENGINE, 1);
    ::setenv("LC_ALL", "C.UTF-8", 1);
    // The handler discards the log messages. The product still formats them.
    ::setenv("QT_LOGGING_RULES", "*.debug=false;zeltaconnect.*.debug=true", 1);
    // The constructor pings the engine; this ping program answers.
    ::setenv("PATH", ZELTACONNECT_FUZZ_BIN_DIR ":/usr/bin:/bin", 1);
}

QConnectQmlPlugin *makeModule()
{
    setEnvironment();
    qInstallMessageHandler(ignoreMessage);
    static int argc = 1;
    static char name[] = "fuzz";
    static char *argv[] = {name, nullptr};
    new QCoreApplication(argc, argv);
    catalogueDirectory = filesDirectory().toStdString();
    takeOverWire();
    auto *module = new QConnectQmlPlugin;
    takeOverTime();
    return module;
}

} // namespace

QConnectQmlPlugin &module()
{
    static QConnectQmlPlugin *const instance = makeModule();
    return *instance;
}

QString filesDirectory()
{
    // In memory if possible, because thousands of files are written.
    static const QString memory = QStringLiteral("/dev/shm");
    static const QTemporaryDir directory((QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) +
                                         QStringLiteral("/zeltaconnect-fuzz-XXXXXX"));
    return directory.path() + QLatin1Char('/');
}

QString writeFile(const QString &name, const QByteArray &content)
{
    const QString path = filesDirectory() + name;
    QFile file(path);
    require(file.open(QIODevice::WriteOnly | QIODevice::Truncate), "a file of the fuzzer can be written");
    file.write(content);
    return path;
}

void settle()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

} // namespace fuzz

// The catalogues have fixed paths in /home, where a user can have files.
ZELTA_REPLACEMENT int open64(const char *path, int flags, ...)
{
    mode_t mode = 0;
    if ((flags & O_CREAT) != 0) {
        va_list arguments;
        va_start(arguments, flags);
        mode = va_arg(arguments, mode_t);
        va_end(arguments);
    }
    std::string actual = path;
    if (!fuzz::catalogueDirectory.empty() && actual.rfind(fuzz::cataloguePrefix, 0) == 0)
        actual.replace(0, sizeof(fuzz::cataloguePrefix) - 1, fuzz::catalogueDirectory);
    return ::openat64(AT_FDCWD, actual.c_str(), flags, mode);
}
