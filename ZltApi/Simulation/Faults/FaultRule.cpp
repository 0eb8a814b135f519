// Fault rules in JSON.
#include "Faults/FaultRule.h"

#include "State/JsonReader.h"

#include <stdexcept>

namespace Simulation
{

namespace
{

FaultRule ParseRule(const nlohmann::json& json)
{
    FaultRule rule;
    JsonReader reader(json, "A fault");
    reader.Read("operation", rule.operation);
    reader.Read("feature", rule.feature);
    reader.Read("call", rule.call);
    reader.Read("every", rule.every);
    reader.Read("count", rule.count);
    reader.Read("code", rule.effect.code);
    reader.Read("delay", rule.effect.delayMs);
    reader.Read("shortBy", rule.effect.shortBy);
    reader.Read("drop", rule.effect.drop);
    reader.Read("hang", rule.effect.hang);
    reader.Read("unplug", rule.effect.unplug);
    reader.Read("value", rule.effect.value);
    reader.RefuseOthers();
    const FaultEffect& effect = rule.effect;
    const bool changesTheCall = effect.code || effect.delayMs > 0 || effect.shortBy > 0 || effect.value;
    if (!changesTheCall && !effect.drop && !effect.hang && !effect.unplug)
    {
        throw std::runtime_error("A fault needs one of the keys \"code\", \"delay\", \"drop\", \"hang\", \"shortBy\", "
                                 "\"unplug\" and \"value\".");
    }
    if (rule.call == 0 || rule.every == 0)
    {
        throw std::runtime_error("The calls of a fault are counted from 1.");
    }
    return rule;
}

} // namespace

std::vector<FaultRule> ParseFaultRules(const std::string& text)
{
    const nlohmann::json json = nlohmann::json::parse(text, nullptr, false);
    std::vector<FaultRule> rules;
    if (json.is_object())
    {
        rules.push_back(ParseRule(json));
        return rules;
    }
    if (!json.is_array())
    {
        throw std::runtime_error("Faults are a JSON object or an array of objects.");
    }
    for (const auto& element : json)
    {
        rules.push_back(ParseRule(element));
    }
    return rules;
}

} // namespace Simulation
