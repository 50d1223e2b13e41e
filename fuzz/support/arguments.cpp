#include "fuzz/support/arguments.h"

#include "fuzz/support/module.h"
#include "fuzz/support/require.h"

#include <QJsonObject>

#include <array>

#include <sys/stat.h>

namespace fuzz {

namespace {

constexpr int mostValues = 64;

QString path(Input &input)
{
    static const std::array<QString, 13> names{
        QStringLiteral("zelta.bin"), QStringLiteral("trigger.bin"),
        QStringLiteral("bank.bin"),  QStringLiteral("sample.wav"),
        QStringLiteral("bt.b03"),    QStringLiteral("bt.ipf"),
        QStringLiteral("empty"),     QStringLiteral("list.json"),
        QStringLiteral("pipe"),      QStringLiteral("folder"),
        QStringLiteral("folder/"),   QStringLiteral("missing"),
        QString(QChar(0)),
    };
    const std::size_t choice = input.byte();
    if (choice < names.size())
        return filesDirectory() + names.at(choice);
    return choice % 2 == 0 ? QString() : filesDirectory() + QString(int(choice) * 16, QLatin1Char('n'));
}

// Any code units, including unpaired surrogates.
QString text(Input &input)
{
    QString result(input.byte(), Qt::Uninitialized);
    for (QChar &c : result)
        c = QChar(input.word());
    return result;
}

template<typename List>
QVariant numbers(Input &input)
{
    List result;
    for (int count = input.index(mostValues); count > 0; --count)
        result.append(int(input.longWord()));
    return QVariant::fromValue(result);
}

QVariant argument(const QByteArray &type, const QByteArray &name, Input &input)
{
    if (type == "uchar")
        return QVariant::fromValue(uchar(input.byte()));
    if (type == "signed char")
        return QVariant::fromValue(static_cast<signed char>(input.byte()));
    if (type == "bool")
        return (input.byte() & 1) != 0;
    if (type == "ushort")
        return QVariant::fromValue(ushort(input.word()));
    if (type == "int")
        return int(input.longWord());
    if (type == "uint")
        return uint(input.longWord());
    if (type == "double")
        return input.real();
    if (type == "QString")
        return name.toLower().contains("file") ? path(input) : text(input);
    if (type == "QStringList") {
        QStringList result;
        for (int count = input.index(8); count > 0; --count)
            result.append(path(input));
        return result;
    }
    if (type == "QList<int>")
        return numbers<QList<int>>(input);
    if (type == "QVector<int>")
        return numbers<QVector<int>>(input);
    require(false, "a parameter has a type that the fuzzer knows");
    return QVariant();
}

QByteArray filled(QByteArray start, int size)
{
    while (start.size() < size)
        start.append(char(start.size()));
    return start;
}

} // namespace

void makeArgumentFiles()
{
    writeFile(QStringLiteral("zelta.bin"), filled("4810QN-abc1.05 - ", 700));
    writeFile(QStringLiteral("trigger.bin"), filled(QByteArray("TGFW\x05\x00\x01\x00", 8), 700));
    writeFile(QStringLiteral("bank.bin"), filled(QByteArray(), 1500));
    writeFile(QStringLiteral("sample.wav"), filled(QByteArray(), 6001));
    writeFile(QStringLiteral("bt.b03"), filled(QByteArray(), 30));
    writeFile(QStringLiteral("bt.ipf"), filled(QByteArray(), 30));
    writeFile(QStringLiteral("empty"), QByteArray());
    writeFile(QStringLiteral("list.json"), "{\"banks\": [{\"name\": \"one\"}]}");
    const QByteArray directory = filesDirectory().toLocal8Bit();
    ::mkfifo((directory + "pipe").constData(), S_IRUSR | S_IWUSR);
    ::mkdir((directory + "folder").constData(), S_IRWXU);
}

Arguments::Arguments(const QMetaMethod &method, Input &input)
    : m_method(method)
{
    const QList<QByteArray> types = method.parameterTypes();
    const QList<QByteArray> names = method.parameterNames();
    for (int i = 0; i < types.size(); ++i)
        m_values.append(argument(types.at(i), names.at(i), input));
}

bool Arguments::call(QObject *object)
{
    std::array<QGenericArgument, 4> arguments;
    const QList<QByteArray> types = m_method.parameterTypes();
    require(types.size() <= int(arguments.size()), "a method has no more than four parameters");
    for (int i = 0; i < types.size(); ++i)
        arguments.at(std::size_t(i)) = QGenericArgument(types.at(i).constData(), m_values.at(i).constData());

    int number = 0;
    QString text;
    QJsonObject json;
    QGenericReturnArgument result;
    if (m_method.returnType() == QMetaType::Int)
        result = Q_RETURN_ARG(int, number);
    else if (m_method.returnType() == QMetaType::QString)
        result = Q_RETURN_ARG(QString, text);
    else if (m_method.returnType() == QMetaType::QJsonObject)
        result = Q_RETURN_ARG(QJsonObject, json);
    return m_method.invoke(object, Qt::DirectConnection, result, arguments[0], arguments[1], arguments[2],
                           arguments[3]);
}

} // namespace fuzz
