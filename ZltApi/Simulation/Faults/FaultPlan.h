// Which faults a camera shows, and how often each operation has been called so far.
#pragma once

#include "Faults/FaultRule.h"

#include <mutex>
#include <string>
#include <vector>

namespace Simulation
{

// Thread-safe.
class FaultPlan
{
public:
    // Replaces all rules; every count starts again.
    void Replace(std::vector<FaultRule> rules);

    // Counts one call of an operation and tells what happens to it.
    FaultEffect Hit(const char* operation, const std::string& feature);

private:
    struct Counted
    {
        FaultRule rule;
        std::uint64_t calls = 0;
    };

    std::mutex m_mutex;
    std::vector<Counted> m_rules;
};

} // namespace Simulation
