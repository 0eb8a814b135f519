// All features of one camera or stream, by name and in the camera's order.
#pragma once

#include "Features/FeatureNode.h"

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Simulation
{

// Filled while the camera is made, unchanged afterwards. The nodes live as long as the map.
class FeatureMap
{
public:
    template <typename Node, typename... Arguments> Node& Add(Arguments&&... arguments)
    {
        auto node = std::make_unique<Node>(std::forward<Arguments>(arguments)...);
        Node& added = *node;
        Insert(std::move(node));
        return added;
    }

    // What a host sees.
    FeatureNode* Find(const std::string& name) const; // null when there is none
    std::vector<FeatureNode*> Shown() const;

    // Hides a feature from hosts; the camera goes on using and keeping it. False when there is none of that name.
    bool Hide(const std::string& name) { return m_byName.erase(name) > 0; }

    // The values that the camera keeps while it has power, as texts by feature name.
    std::map<std::string, std::string> Save() const;
    // Puts every kept feature back to its initial value and then to the saved one, as far as there is one that fits.
    void Restore(const std::map<std::string, std::string>& values);

private:
    void Insert(std::unique_ptr<FeatureNode> node);

    std::vector<std::unique_ptr<FeatureNode>> m_nodes;
    std::map<std::string, FeatureNode*> m_byName;
};

} // namespace Simulation
