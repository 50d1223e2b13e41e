#pragma once

#include <QString>

/// What one check of --diagnose found.
struct Finding
{
    enum class State {
        Ok,
        Fault,
        Skipped, ///< could not be checked, because another check failed
    };

    QString name; ///< of the check, the same in every version of the program
    State state = State::Ok;
    QString text; ///< what was found
    QString mend; ///< with Fault: what to do about it
};

inline Finding okFinding(const char *name, const QString &text)
{
    return {QString::fromLatin1(name), Finding::State::Ok, text, {}};
}

inline Finding faultFinding(const char *name, const QString &text, const QString &mend)
{
    return {QString::fromLatin1(name), Finding::State::Fault, text, mend};
}

inline Finding skippedFinding(const char *name, const QString &text)
{
    return {QString::fromLatin1(name), Finding::State::Skipped, text, {}};
}
