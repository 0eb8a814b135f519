// Look-up and kept values of a camera's features.
#include "Features/FeatureMap.h"

#include <cassert>

namespace Simulation
{

FeatureNode* FeatureMap::Find(const std::string& name) const
{
    const auto found = m_byName.find(name);
    return found == m_byName.end() ? nullptr : found->second;
}

std::vector<FeatureNode*> FeatureMap::Shown() const
{
    std::vector<FeatureNode*> shown;
    for (const auto& node : m_nodes)
    {
        if (Find(node->Name()))
        {
            shown.push_back(node.get());
        }
    }
    return shown;
}

std::map<std::string, std::string> FeatureMap::Save() const
{
    std::map<std::string, std::string> values;
    for (const auto& node : m_nodes)
    {
        if (node->IsKept())
        {
            values[node->Name()] = node->Save();
        }
    }
    return values;
}

void FeatureMap::Restore(const std::map<std::string, std::string>& values)
{
    for (const auto& node : m_nodes)
    {
        if (node->IsKept())
        {
            node->Reset();
        }
    }
    for (const auto& node : m_nodes)
    {
        const auto saved = values.find(node->Name());
        if (node->IsKept() && saved != values.end())
        {
            node->Restore(saved->second);
        }
    }
}

void FeatureMap::Insert(std::unique_ptr<FeatureNode> node)
{
    const bool isNew = m_byName.emplace(node->Name(), node.get()).second;
    assert(isNew && "a camera has one feature of each name");
    m_nodes.push_back(std::move(node));
}

} // namespace Simulation
