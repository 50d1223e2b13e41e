#pragma once

struct Options;
struct Result;
class Reporter;

/// Checks all files before the first one is sent: half a set of bluetooth firmware is worse than none. Adds
/// each file to result. Returns false if nothing may be sent; the outcome then says why. With --keep-going
/// the files that cannot be used have failed, and the others may be sent.
bool checkJobs(const Options &options, Reporter &reporter, Result *result);

/// Warns of files that look like another kind.
void warnOfOtherKinds(const Options &options, Reporter &reporter, Result *result);

/// The end of --dry-run: the files that have not failed would be sent, unless they are firmware without a
/// version.
void rehearse(const Options &options, Reporter &reporter, Result *result);
