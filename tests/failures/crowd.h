#pragma once

#include <functional>
#include <memory>
#include <vector>

/// A job that mostly waits.
class CrowdMember
{
public:
    virtual ~CrowdMember() = default;
    /// Starts the job.
    virtual void start() = 0;
    /// Called about fifty times a second. Returns true when the job is over.
    virtual bool isOver() = 0;
};

/// Runs count jobs in order in the calling thread, atOnce of them at a time. Calls `over` for each job that
/// ends and then deletes the job.
using MakeMember = std::function<std::unique_ptr<CrowdMember>(int index, int place)>;
void runCrowd(int count, int atOnce, const MakeMember &make,
              const std::function<void(int index, CrowdMember &member)> &over);
