#pragma once

struct Options;
struct Result;
class Reporter;

/// --inspect: what the files are and which versions they have.
void inspectFiles(const Options &options, Reporter &reporter, Result *result);
