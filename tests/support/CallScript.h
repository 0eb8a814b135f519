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

    // The action runs first thing in the n-th such call from now on (0: in each).
    void On(const std::string& call, unsigned n, std::function<void()> action)
    {
        m_rules.push_back({call, n, 0, std::move(action), ZltErrorSuccess});
    }
    // The n-th such call from now on fails (0: each).
    void Fail(const std::string& call, unsigned n = 1)
    {
        m_rules.push_back({call, n, 0, [] {}, Failure});
    }
    ZltErrorType Call(const std::string& call)
    {
        ZltErrorType code = ZltErrorSuccess;
        for (Rule& rule : m_rules)
        {
            if (rule.call == call && (++rule.seen == rule.n || rule.n == 0))
            {
                rule.action();
                code = rule.code;
            }
        }
        return code;
    }

    std::vector<std::string> changes; // calls that change the camera, in order, such as "Set FileSelector A"

private:
    struct Rule
    {
        std::string call;
        unsigned n;
        unsigned seen;
        std::function<void()> action;
        ZltErrorType code;
    };
    std::vector<Rule> m_rules;
};
