// Follows the progress of a file transfer and may stop it.
#pragma once

#include <string>

namespace KTR::FeatureHelper::FileAccess
{

// Called on the thread of the transfer.
class TaskObserver
{
public:
    TaskObserver() = default;
    TaskObserver(const TaskObserver&) = delete;
    TaskObserver& operator=(const TaskObserver&) = delete;
    virtual ~TaskObserver() = default;

    // From 0.0 (nothing done) to 1.0 (all done).
    virtual void ReportProgress(double progress) = 0;
    // Reserved for transfers that describe their steps; none does today.
    virtual void ReportMessage(const std::string& message) = 0;
    // Asked before each block; true ends the transfer with an exception.
    virtual bool IsAborted() = 0;
};

} // namespace KTR::FeatureHelper::FileAccess
