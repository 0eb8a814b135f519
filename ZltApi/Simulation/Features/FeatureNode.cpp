// Access rules of a feature.
#include "Features/FeatureNode.h"

#include <algorithm>

namespace Simulation
{

namespace
{

bool AllHold(const std::vector<FeatureNode::Condition>& conditions)
{
    return std::all_of(conditions.begin(), conditions.end(), [](const auto& condition) { return condition(); });
}

} // namespace

void FeatureNode::ReadOnly()
{
    m_writable.emplace_back([] { return false; });
}

bool FeatureNode::IsReadable() const
{
    return Type() != ZltFeatureDataCommand && AllHold(m_readable);
}

bool FeatureNode::IsWritable() const
{
    return AllHold(m_writable);
}

void FeatureNode::KeepAtOnce()
{
    m_kept = true;
    m_keptAtOnce = true;
}

} // namespace Simulation
