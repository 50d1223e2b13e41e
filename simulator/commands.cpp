#include "commands.h"

#include "commandreaders.h"

namespace simulated {

namespace {

const CommandRow *findCommand(const QString &name)
{
    for (const auto *rows : {&sendCommands(), &stateCommands()}) {
        for (const CommandRow &row : *rows) {
            if (name == QLatin1String(row.name))
                return &row;
        }
    }
    return nullptr;
}

} // namespace

Run Reader::fail(const QString &line)
{
    problem = line;
    return {};
}

bool Reader::number(int index, int largest, int *value)
{
    if (index < count() && readNumber(arguments.at(index), largest, value))
        return true;
    problem =
        index < count()
            ? QStringLiteral("\"%1\" is not a number from 0 to %2").arg(arguments.at(index)).arg(largest)
            : QStringLiteral("a number is missing");
    return false;
}

Run setting(const std::function<void(SoundEngine &)> &set)
{
    return [set](SoundEngine &engine) {
        set(engine);
        return QStringList();
    };
}

bool readOnOff(const QString &text, bool *on)
{
    *on = text == QLatin1String("on");
    return *on || text == QLatin1String("off");
}

QStringList wordsOf(const QString &line)
{
    const int comment = line.indexOf(QLatin1Char('#'));
    const QString words = (comment < 0 ? line : line.left(comment)).simplified();
    return words.isEmpty() ? QStringList() : words.split(QLatin1Char(' '));
}

bool readNumber(const QString &text, int largest, int *number)
{
    // QString::toInt() alone also takes signs.
    if (text.isEmpty() || !text.at(0).isDigit())
        return false;
    bool isNumber = false;
    const bool hex = text.startsWith(QLatin1String("0x"));
    *number = text.toInt(&isNumber, hex ? 16 : 10);
    return isNumber && *number >= 0 && *number <= largest;
}

bool readTag(const QString &word, quint16 *value)
{
    int number = 0;
    if (word.size() > 2 && readNumber(word, largestWord, &number)) {
        *value = quint16(number);
        return true;
    }
    const QByteArray letters = word.toLatin1();
    if (letters.size() != 2)
        return false;
    *value = wordAt(letters, 0);
    return true;
}

bool parseCommand(const QString &line, Command *command, QString *problem)
{
    QStringList words = wordsOf(line);
    if (words.isEmpty()) {
        *problem = QStringLiteral("no command");
        return false;
    }
    const QString name = words.takeFirst();
    const CommandRow *row = findCommand(name);
    if (row == nullptr) {
        *problem = QStringLiteral("unknown command \"%1\"").arg(name);
        return false;
    }
    if (words.size() < row->least || words.size() > row->most) {
        *problem = QStringLiteral("usage: %1 %2").arg(name, QLatin1String(row->arguments)).trimmed();
        return false;
    }
    Reader reader{words, {}};
    command->run = row->read(reader);
    command->isQuit = name == QLatin1String("quit");
    *problem = reader.problem;
    return bool(command->run);
}

QStringList commandHelp()
{
    QStringList lines;
    for (const auto *rows : {&sendCommands(), &stateCommands()}) {
        for (const CommandRow &row : *rows) {
            const QString usage =
                QStringLiteral("%1 %2").arg(QLatin1String(row.name), QLatin1String(row.arguments)).trimmed();
            lines.append(QStringLiteral("%1 %2").arg(usage, -34).arg(QLatin1String(row.help)));
        }
    }
    return lines;
}

} // namespace simulated
