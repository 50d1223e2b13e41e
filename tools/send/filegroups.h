#pragma once

#include "job.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QStringList>
#include <QVector>

/// Files of one kind, and the options that belong to them, as they were given.
struct FileGroup
{
    QStringList files;
    QString kind; ///< empty: not given, like the others
    QString slot;
    QString name;

    bool hasOptions() const { return !kind.isEmpty() || !slot.isEmpty() || !name.isEmpty(); }
};

/// The options that describe a file.
struct FileOptions
{
    const QCommandLineOption kind{
        QStringLiteral("kind"),
        QStringLiteral("What the file is: %1.").arg(kindNames().join(QStringLiteral(", "))),
        QStringLiteral("KIND")};
    const QCommandLineOption slot{QStringLiteral("slot"), QStringLiteral("Slot of an import, 0 to 65535."),
                                  QStringLiteral("NUMBER")};
    const QCommandLineOption name{
        QStringLiteral("name"), QStringLiteral("Name of an imported sound bank (default: its file's name)."),
        QStringLiteral("NAME")};
};

/// Sorts the files of a command line and the options that describe them into groups. Where each option is
/// given at most once, all files are one group, and the options may stand anywhere. Otherwise the options of
/// a group follow its files, and the next file begins the next group. Returns an empty text, or one line
/// about options that belong to no file. parser has parsed the arguments without an error.
QString groupFiles(QCommandLineParser &parser, const FileOptions &options, const QStringList &arguments,
                   QVector<FileGroup> *groups);

/// Reads the values of a group and appends its files to jobs. Returns an empty text, or one line about a
/// value that is wrong or missing.
QString appendJobs(const FileGroup &group, QVector<Job> *jobs);
