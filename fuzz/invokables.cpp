// All methods that QML can call, with any arguments, and events of the engine in between.

#include "fuzz/support/arguments.h"
#include "fuzz/support/input.h"
#include "fuzz/support/module.h"
#include "fuzz/support/require.h"
#include "fuzz/support/wire.h"

#include <QMetaMethod>
#include <QThread>

#include <algorithm>
#include <vector>

using namespace fuzz;

namespace {

constexpr quint16 hihatQuery = 0x484C;
int hihatRequests = 0;
bool transferQueued = false;

// Sorted by name, so that the meaning of an input does not depend on the order in the header.
std::vector<QMetaMethod> invokables()
{
    std::vector<QMetaMethod> result;
    const QMetaObject &meta = QConnectQmlPlugin::staticMetaObject;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        if (meta.method(i).methodType() == QMetaMethod::Method)
            result.push_back(meta.method(i));
    }
    std::sort(result.begin(), result.end(), [](const QMetaMethod &left, const QMetaMethod &right) {
        return left.methodSignature() < right.methodSignature();
    });
    require(!result.empty(), "the module has methods to call");
    return result;
}

// The bytes of a SysEx message between its first and its last one, from a datagram: after the header, each
// fourth byte is a code index.
QByteArray sysExContent(const QByteArray &datagram)
{
    QByteArray stream;
    for (int i = 4; i < datagram.size(); ++i) {
        if (i % 4 != 0)
            stream.append(datagram.at(i));
    }
    const int end = stream.lastIndexOf('\xF7');
    require(stream.startsWith('\xF0') && end > 0, "a SysEx message has a start and an end");
    require(stream.mid(end + 1).count('\0') == stream.size() - end - 1, "only zeros follow a SysEx message");
    return stream.mid(1, end - 1);
}

void checkSysEx(const QList<int> &values, const QList<QByteArray> &sent)
{
    require(sent.size() == 1, "a SysEx message is one datagram");
    QByteArray expected;
    for (const int value : values)
        expected.append(char(value));
    require(sysExContent(sent.first()) == expected, "a SysEx message contains its values");
}

void call(const QMetaMethod &method, Input &input)
{
    const QByteArray name = method.name();
    transferQueued = transferQueued || name.startsWith("send") || name.startsWith("request");
    if (name == "requestHHRawValue")
        ++hihatRequests;

    Arguments arguments(method, input);
    const bool isSysEx = name == "sendSysEx";
    keepSent(isSysEx);
    require(arguments.call(&module()), "a method can be called with its arguments");
    if (isSysEx)
        checkSysEx(arguments.value<QList<int>>(0), takeSent());
    keepSent(false);
}

void takeEvent(Input &input)
{
    const quint16 id = input.word();
    const quint16 idx = input.word();
    const quint16 data = input.word();
    QMetaObject::invokeMethod(&module(), "udpPacket", Qt::DirectConnection, Q_ARG(quint16, id),
                              Q_ARG(quint16, idx), Q_ARG(quint16, data));
}

// Waits for the queued transfers: a query that is queued behind them is sent last. If the engine requests
// data beyond the end of a file, the file is aborted and the queue stops until another task is queued.
// Therefore the query is repeated.
void finishTransfers()
{
    if (!transferQueued)
        return;
    transferQueued = false;
    constexpr int patience = 10000000;
    constexpr int betweenQueries = 200000;
    for (int i = 0; i == 0 || sentCount(hihatQuery) < hihatRequests; ++i) {
        require(i < patience, "queued transfers end");
        if (i % betweenQueries == 0) {
            module().requestHHRawValue();
            ++hihatRequests;
        }
        QThread::yieldCurrentThread();
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    module();
    makeArgumentFiles();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const std::vector<QMetaMethod> methods = invokables();
    Input input(data, size);
    while (!input.atEnd()) {
        const std::size_t choice = input.byte();
        if (choice < methods.size())
            call(methods.at(choice), input);
        else
            takeEvent(input);
    }
    finishTransfers();
    settle();
    return 0;
}
