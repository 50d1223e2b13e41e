#include "filegroups.h"

#include "tools/shared/numbers.h"

namespace {

constexpr int largestSlot = 0xFFFF;

// One option of a group while the arguments are read one by one.
struct Field
{
    const QCommandLineOption *option;
    QString FileGroup::*value;
    int seen = 0;
};

QString listed(const QStringList &files)
{
    return files.size() == 1 ? files.constFirst()
                             : QStringLiteral("%1 and the files before it").arg(files.constLast());
}

} // namespace

QString groupFiles(QCommandLineParser &parser, const FileOptions &options, const QStringList &arguments,
                   QVector<FileGroup> *groups)
{
    Field fields[] = {{&options.kind, &FileGroup::kind},
                      {&options.slot, &FileGroup::slot},
                      {&options.name, &FileGroup::name}};
    bool isOneGroup = true;
    for (const Field &field : fields)
        isOneGroup = isOneGroup && parser.values(*field.option).size() <= 1;
    FileGroup group;
    if (isOneGroup) {
        for (const Field &field : fields)
            group.*field.value = parser.value(*field.option);
        group.files = parser.positionalArguments();
        groups->append(group);
        return {};
    }

    // The parser does not say in which order files and options stand. What each argument adds shows it.
    QStringList read(QString{});
    int files = 0;
    for (const QString &argument : arguments) {
        read.append(argument);
        parser.parse(read);
        if (parser.positionalArguments().size() > files) {
            ++files;
            if (group.hasOptions()) {
                groups->append(group);
                group = FileGroup();
            }
            group.files.append(argument);
        }
        for (Field &field : fields) {
            const QStringList values = parser.values(*field.option);
            if (values.size() == field.seen)
                continue;
            field.seen = values.size();
            const QString option = field.option->names().constFirst();
            if (group.files.isEmpty()) {
                return QStringLiteral("--%1 %2 stands before all files; with several files of different "
                                      "kinds it follows its file")
                    .arg(option, values.constLast());
            }
            if (!(group.*field.value).isEmpty())
                return QStringLiteral("two --%1 for %2").arg(option, listed(group.files));
            group.*field.value = values.constLast();
        }
    }
    groups->append(group);
    return {};
}

QString appendJobs(const FileGroup &group, QVector<Job> *jobs)
{
    if (group.kind.isEmpty()) {
        return group.files.isEmpty() || jobs->isEmpty()
                   ? QStringLiteral("the kind of the file is unknown: --kind is missing")
                   : QStringLiteral("the kind of %1 is unknown: --kind is missing").arg(listed(group.files));
    }
    const Kind *kind = kindNamed(group.kind);
    if (!kind)
        return QStringLiteral("no kind %1; use one of %2")
            .arg(group.kind, kindNames().join(QStringLiteral(", ")));
    int slot = -1;
    if (!group.slot.isEmpty() && !readNumber(group.slot, 0, largestSlot, &slot))
        return QStringLiteral("--slot takes 0 to %1, not %2").arg(largestSlot).arg(group.slot);
    if (group.files.isEmpty())
        return QStringLiteral("no file given");
    if (group.files.size() > 1 && !kind->isSet)
        return QStringLiteral("--kind %1 takes one file").arg(group.kind);
    if (kind->extra != Kind::Extra::None && slot < 0)
        return QStringLiteral("--kind %1 needs --slot").arg(group.kind);
    if (kind->extra == Kind::Extra::None && slot >= 0)
        return QStringLiteral("--kind %1 has no slot").arg(group.kind);
    if (kind->extra != Kind::Extra::SlotAndName && !group.name.isEmpty())
        return QStringLiteral("--kind %1 has no name").arg(group.kind);
    const int number = jobs->isEmpty() ? 0 : jobs->constLast().group + 1;
    for (const QString &path : group.files)
        jobs->append({path, kind, slot, group.name, number});
    return {};
}
