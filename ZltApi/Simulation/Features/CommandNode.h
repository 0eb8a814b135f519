// A command feature.
#pragma once

#include "Features/FeatureNode.h"

#include <chrono>
#include <functional>

namespace Simulation
{

class CommandNode final : public FeatureNode
{
public:
    // The action runs at once; the command counts as done when the duration has passed since then.
    CommandNode(std::string name, std::function<ZltErrorType()> action, std::chrono::milliseconds duration = {});

    ZltErrorType Run() override;
    // Takes the command and never gets done with it: the action does not run.
    void Hang() override;
    ZltErrorType IsDone(bool& done) const override;

private:
    const std::function<ZltErrorType()> m_action;
    const std::chrono::milliseconds m_duration;
    std::chrono::steady_clock::time_point m_doneAt;
};

} // namespace Simulation
