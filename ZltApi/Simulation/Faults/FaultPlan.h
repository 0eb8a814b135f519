// Which faults a camera shows, and how often each operation has been called so far.
#pragma once

#include "Faults/FaultRule.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace Simulation
{

// Thread-safe.
class FaultPlan
{
public:
    // The file takes the place of the built-in rules while it is there and can be read. It is looked at before each
    // operation, so that a fault written by another process holds for the next one.
    explicit FaultPlan(std::vector<FaultRule> builtIn = {}, std::filesystem::path file = {});

    // Counts one call of an operation and tells what happens to it. Every count starts again when the rules change.
    FaultEffect Hit(const char* operation, const std::string& feature);

private:
    struct Counted
    {
        FaultRule rule;
        std::uint64_t calls = 0;
    };

    // One writing of the file, to be told from the next: its node and time of change in seconds and nanoseconds.
    using Writing = std::array<std::int64_t, 3>;

    void Update();

    const std::vector<FaultRule> m_builtIn;
    const std::filesystem::path m_file;
    std::mutex m_mutex;
    std::optional<Writing> m_seen; // all zero: no file
    std::vector<Counted> m_rules;
};

} // namespace Simulation
