#pragma once

#include <QString>

struct Kind;

/// What the beginning of a file shows about its kind.
struct FileLook
{
    QString kind;     ///< name of a kind, as --kind takes it; empty: not recognised
    QString noun;     ///< the kind in a sentence
    int version = -1; ///< major number in the upper 16 bits, minor in the lower; -1: none
    QString detail;   ///< of a WAV file: channels, sampling rate and sample size
};

/// Recognises firmware of the sound engine and the trigger board, and WAV files.
FileLook lookAtFile(const QString &path);

/// The version that the module finds in firmware of this kind. Below 0: none, and the module does not send
/// it.
int firmwareVersion(const QString &path, const Kind &kind);

/// True for names of files of bluetooth firmware, which nothing in their contents marks: ".b00" to ".b15",
/// ".ipf".
bool isNamedAsBluetooth(const QString &path);

/// "1.05"
QString versionText(int version);
