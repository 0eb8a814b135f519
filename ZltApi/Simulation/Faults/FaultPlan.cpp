// Counting calls against the fault rules.
#include "Faults/FaultPlan.h"

#include <utility>

namespace Simulation
{

void FaultPlan::Replace(std::vector<FaultRule> rules)
{
    const std::lock_guard lock(m_mutex);
    m_rules.clear();
    for (auto& rule : rules)
    {
        m_rules.push_back({std::move(rule)});
    }
}

FaultEffect FaultPlan::Hit(const char* operation, const std::string& feature)
{
    const std::lock_guard lock(m_mutex);
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
