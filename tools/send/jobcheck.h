#pragma once

#include <QSet>

struct Options;
struct Result;
class Reporter;

/// Checks all files, and the versions of firmware, before the first one is sent: half a set of bluetooth
/// firmware is worse than none. Adds each file to result. Returns false if nothing may be sent; the outcome
/// then says why. With --keep-going the files that cannot be used have failed, and the others may be sent.
bool checkJobs(const Options &options, Reporter &reporter, Result *result);

/// The groups that have a failed file. Their other files are not sent.
QSet<int> failedGroups(const Options &options, const Result &result);

/// Warns of files that will be sent and look like another kind.
void warnOfOtherKinds(const Options &options, Reporter &reporter, Result *result);

/// The end of --dry-run: the files of groups without a failure would be sent.
void rehearse(const Options &options, Reporter &reporter, Result *result);
