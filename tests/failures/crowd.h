#pragma once

#include <functional>
#include <memory>
#include <vector>

/// Something that takes its time without keeping a processor busy.
class CrowdMember
{
public:
    virtual ~CrowdMember() = default;
    /// Begins.
    virtual void start() = 0;
    /// Looks after it, some fifty times a second; true when it is over.
    virtual bool isOver() = 0;
};

/// Runs many things in the thread of the test, so many of them at the same time, in their order.
/// over is called for each as it ends; the member is gone after that.
using MakeMember = std::function<std::unique_ptr<CrowdMember>(int index, int place)>;
void runCrowd(int count, int atOnce, const MakeMember &make,
              const std::function<void(int index, CrowdMember &member)> &over);
