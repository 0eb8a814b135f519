// Decides which calls of a scripted camera fail, or change something first.
#pragma once

#include "ZltApi/ResultCodes.h"

#include <functional>
#include <string>
#include <vector>

// A call is an operation and a feature, such as "Get FileSize" or "Run DeviceReset".
class CallScript
{
public:
    static constexpr ZltErrorType Failure = ZltErrorTransportLayer; // -13, the code of Fail()

    // The action runs before the n-th such call from now on (0: before each), which goes on if it returns success.
    // What was added last runs first.
    void On(const std::string& call, unsigned n, std::function<ZltErrorType()> action)
    {
        m_rules.insert(m_rules.begin(), Rule{call, n, 0, std::move(action)});
    }
    void Fail(const std::string& call, unsigned n = 1)
    {
        On(call, n, [] { return Failure; });
    }
    ZltErrorType Call(const std::string& call)
    {
        for (Rule& rule : m_rules)
        {
            const bool due = rule.call == call && (++rule.seen == rule.n || rule.n == 0);
            if (const ZltErrorType code = due ? rule.action() : ZltErrorSuccess; code != ZltErrorSuccess)
            {
                return code;
            }
        }
        return ZltErrorSuccess;
    }

    std::vector<std::string> changes; // calls that change the camera, in order, such as "Set FileSelector A"

private:
    struct Rule
    {
        std::string call;
        unsigned n;
        unsigned seen;
        std::function<ZltErrorType()> action;
    };
    std::vector<Rule> m_rules;
};
