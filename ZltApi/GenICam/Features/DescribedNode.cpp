// A feature that the camera describes: what its description says about access.
#include "Features/DescribedNode.h"

#include "Aravis/Ask.h"

#include <algorithm>

namespace GenICam
{

namespace
{

constexpr std::size_t LongestChain = 16; // a description that goes round in a circle ends here

} // namespace

ArvGcPropertyNode* FindProperty(ArvGcNode* node, ArvGcPropertyNodeType type)
{
    for (ArvDomNode* child = arv_dom_node_get_first_child(ARV_DOM_NODE(node)); child != nullptr;
         child = arv_dom_node_get_next_sibling(child))
    {
        if (ARV_IS_GC_PROPERTY_NODE(child) && arv_gc_property_node_get_node_type(ARV_GC_PROPERTY_NODE(child)) == type)
        {
            return ARV_GC_PROPERTY_NODE(child);
        }
    }
    return nullptr;
}

ArvGcNode* ValueSource(ArvGcNode* node)
{
    ArvGcPropertyNode* const property = FindProperty(node, ARV_GC_PROPERTY_NODE_TYPE_P_VALUE);
    return property != nullptr ? arv_gc_property_node_get_linked_node(property) : nullptr;
}

DescribedNode::DescribedNode(ArvGcFeatureNode* node, std::string name, ZltFeatureDataType type)
    : FeatureNode(std::move(name), type)
{
    for (ArvGcNode* link = ARV_GC_NODE(node); link != nullptr && m_chain.size() < LongestChain;
         link = ValueSource(link))
    {
        if (!ARV_IS_GC_FEATURE_NODE(link))
        {
            break;
        }
        m_chain.push_back(ARV_GC_FEATURE_NODE(link));
    }
}

bool DescribedNode::IsImplemented() const
{
    if (!m_isImplemented)
    {
        m_isImplemented =
            std::all_of(m_chain.begin(), m_chain.end(),
                        [](ArvGcFeatureNode* link) { return Ask(arv_gc_feature_node_is_implemented, link) != FALSE; });
    }
    return *m_isImplemented;
}

bool DescribedNode::IsAvailable() const
{
    return IsImplemented() &&
           std::all_of(m_chain.begin(), m_chain.end(),
                       [](ArvGcFeatureNode* link) { return Ask(arv_gc_feature_node_is_available, link) != FALSE; });
}

bool DescribedNode::IsReadable() const
{
    return arv_gc_feature_node_get_actual_access_mode(Node()) != ARV_GC_ACCESS_MODE_WO && IsAvailable();
}

bool DescribedNode::IsWritable() const
{
    return arv_gc_feature_node_get_actual_access_mode(Node()) != ARV_GC_ACCESS_MODE_RO && IsAvailable() &&
           std::none_of(m_chain.begin(), m_chain.end(),
                        [](ArvGcFeatureNode* link) { return Ask(arv_gc_feature_node_is_locked, link) != FALSE; });
}

} // namespace GenICam
