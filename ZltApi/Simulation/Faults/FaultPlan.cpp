// Counting calls against the fault rules.
#include "Faults/FaultPlan.h"

#include "State/StateFile.h"

#include <sys/stat.h>

#include <optional>
#include <stdexcept>
#include <utility>

namespace Simulation
{

namespace
{

constexpr std::uint64_t LargestRules = 1'000'000; // bytes

std::optional<std::vector<FaultRule>> ReadRules(const std::filesystem::path& file)
{
    const std::optional<FileBytes> bytes = ReadStateFile(file, LargestRules);
    try
    {
        return bytes ? std::optional(ParseFaultRules({bytes->begin(), bytes->end()})) : std::nullopt;
    }
    catch (const std::runtime_error&)
    {
        return std::nullopt;
    }
}

} // namespace

FaultPlan::FaultPlan(std::vector<FaultRule> builtIn, std::filesystem::path file)
    : m_builtIn(std::move(builtIn)),
      m_file(std::move(file))
{
}

void FaultPlan::Update()
{
    struct stat status = {};
    Writing writing{};
    if (::stat(m_file.c_str(), &status) == 0)
    {
        writing = {static_cast<std::int64_t>(status.st_ino), status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
    }
    if (writing == m_seen)
    {
        return;
    }
    m_seen = writing;
    m_rules.clear();
    for (FaultRule& rule : ReadRules(m_file).value_or(m_builtIn))
    {
        m_rules.push_back({std::move(rule)});
    }
}

FaultEffect FaultPlan::Hit(const char* operation, const std::string& feature)
{
    const std::lock_guard lock(m_mutex);
    Update();
    FaultEffect joined;
    for (auto& [rule, calls] : m_rules)
    {
        if ((!rule.operation.empty() && rule.operation != operation) ||
            (!rule.feature.empty() && rule.feature != feature))
        {
            continue;
        }
        ++calls;
        if (calls < rule.call || (calls - rule.call) % rule.every != 0 ||
            (rule.count != 0 && (calls - rule.call) / rule.every >= rule.count))
        {
            continue;
        }
        joined.code = rule.effect.code ? rule.effect.code : joined.code;
        joined.value = rule.effect.value ? rule.effect.value : joined.value;
        joined.delayMs += rule.effect.delayMs;
        joined.shortBy += rule.effect.shortBy;
        joined.drop = joined.drop || rule.effect.drop;
        joined.hang = joined.hang || rule.effect.hang;
        joined.unplug = joined.unplug || rule.effect.unplug;
    }
    return joined;
}

} // namespace Simulation
