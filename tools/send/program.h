#pragma once

#include "interruption.h"
#include "result.h"

#include <memory>
#include <optional>

class Module;
class Reporter;
struct Options;

/// One run of the program. Its destructor shuts the module down, which can take seconds.
class Program
{
public:
    Program(const Options &options, Reporter &reporter);
    ~Program();
    Program(const Program &) = delete;
    Program &operator=(const Program &) = delete;

    /// Does what the options ask for. Needs an application object, except for Help, Version and Refuse.
    Result run();

private:
    bool chooseEngine();
    void send();
    void rehearseSending();
    void runSession();
    void diagnose();

    const Options &m_options;
    Reporter &m_reporter;
    Result m_result;
    std::unique_ptr<Module> m_module;
    // Exists up to the end, so that a late signal leaves the result whole.
    std::optional<Interruption> m_interruption;
};
