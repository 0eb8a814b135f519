// Running a command feature.
#include "Features/CommandNode.h"

#include <utility>

namespace Simulation
{

CommandNode::CommandNode(std::string name, std::function<ZltErrorType()> action, std::chrono::milliseconds duration)
    : FeatureNode(std::move(name), ZltFeatureDataCommand),
      m_action(std::move(action)),
      m_duration(duration)
{
}

ZltErrorType CommandNode::Run()
{
    m_doneAt = std::chrono::steady_clock::now() + m_duration;
    return m_action();
}

void CommandNode::Hang()
{
    m_doneAt = std::chrono::steady_clock::time_point::max();
}

ZltErrorType CommandNode::IsDone(bool& done) const
{
    done = std::chrono::steady_clock::now() >= m_doneAt;
    return ZltErrorSuccess;
}

} // namespace Simulation
