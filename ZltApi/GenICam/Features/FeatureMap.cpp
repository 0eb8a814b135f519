// The features of an open camera, or of its stream.
#include "Features/FeatureMap.h"

#include "Features/CommandNode.h"
#include "Features/EnumerationNode.h"
#include "Features/ValueNodes.h"

#include <set>

namespace GenICam
{

namespace
{

constexpr const char* TopCategory = "Root";

class TreeWalk
{
public:
    TreeWalk(ArvGc& description, CameraMemory& memory, FeatureMap& features)
        : m_description(description),
          m_memory(memory),
          m_features(features)
    {
    }

    void Enter(const std::string& name)
    {
        ArvGcNode* const node = arv_gc_get_node(&m_description, name.c_str());
        if (node == nullptr || !m_seen.insert(name).second)
        {
            return;
        }
        if (!ARV_IS_GC_CATEGORY(node))
        {
            if (std::unique_ptr<FeatureNode> feature = MakeNode(node, name, m_memory))
            {
                m_features.Add(std::move(feature));
            }
            return;
        }
        for (const GSList* entry = arv_gc_category_get_features(ARV_GC_CATEGORY(node)); entry != nullptr;
             entry = entry->next)
        {
            Enter(static_cast<const char*>(entry->data));
        }
    }

private:
    ArvGc& m_description;
    CameraMemory& m_memory;
    FeatureMap& m_features;
    std::set<std::string> m_seen;
};

} // namespace

void FeatureMap::Add(std::unique_ptr<FeatureNode> node)
{
    const auto [place, isNew] = m_nodes.try_emplace(node->Name(), nullptr);
    if (isNew)
    {
        place->second = std::move(node);
        m_order.push_back(place->second.get());
    }
}

FeatureNode* FeatureMap::Find(const std::string& name) const
{
    const auto found = m_nodes.find(name);
    return found != m_nodes.end() ? found->second.get() : nullptr;
}

// Most nodes can be asked as several kinds: the first that fits is what the description calls them.
std::unique_ptr<FeatureNode> MakeNode(ArvGcNode* node, const std::string& name, CameraMemory& memory)
{
    if (!ARV_IS_GC_FEATURE_NODE(node))
    {
        return nullptr;
    }
    ArvGcFeatureNode* const feature = ARV_GC_FEATURE_NODE(node);
    if (ARV_IS_GC_ENUMERATION(node))
    {
        return std::make_unique<EnumerationNode>(feature, name);
    }
    if (ARV_IS_GC_BOOLEAN(node))
    {
        return std::make_unique<BooleanNode>(feature, name);
    }
    if (ARV_IS_GC_COMMAND(node))
    {
        return std::make_unique<CommandNode>(feature, name);
    }
    if (ARV_IS_GC_STRING(node))
    {
        return std::make_unique<StringNode>(feature, name);
    }
    if (ARV_IS_GC_INTEGER(node))
    {
        return std::make_unique<IntegerNode>(feature, name);
    }
    if (ARV_IS_GC_FLOAT(node))
    {
        return std::make_unique<FloatNode>(feature, name);
    }
    if (ARV_IS_GC_REGISTER(node))
    {
        return std::make_unique<RawNode>(feature, name, memory);
    }
    return nullptr;
}

void AddDescribedFeatures(ArvGc& description, CameraMemory& memory, FeatureMap& features)
{
    TreeWalk(description, memory, features).Enter(TopCategory);
}

} // namespace GenICam
