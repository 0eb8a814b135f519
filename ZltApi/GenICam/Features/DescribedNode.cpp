// A feature that the camera describes: what its description says about access.
#include "Features/DescribedNode.h"

#include "Aravis/Ask.h"

#include <algorithm>

namespace GenICam
{

namespace
{

constexpr std::size_t LongestChain = 16; // a description that goes round in a circle ends here

// The value comes with a frame or an event, not from a register.
bool IsSentByTheCamera(ArvGcFeatureNode* node)
{
    ArvGcPropertyNode* const property = FindProperty(ARV_GC_NODE(node), ARV_GC_PROPERTY_NODE_TYPE_P_PORT);
    ArvGcNode* const port = property != nullptr ? arv_gc_property_node_get_linked_node(property) : nullptr;
    return port != nullptr && (FindProperty(port, ARV_GC_PROPERTY_NODE_TYPE_CHUNK_ID) != nullptr ||
                               FindProperty(port, ARV_GC_PROPERTY_NODE_TYPE_EVENT_ID) != nullptr);
}

} // namespace

bool Holds(gboolean (*condition)(ArvGcFeatureNode*, GError**), ArvGcFeatureNode* node, bool otherwise)
{
    try
    {
        return Ask(condition, node) != FALSE;
    }
    catch (const AravisError& error)
    {
        if (error.Code() == ZltErrorTimeout || error.Code() == ZltErrorDeviceNotOpen)
        {
            throw; // nothing else would be answered either
        }
        return otherwise;
    }
}

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
    m_isSent = std::any_of(m_chain.begin(), m_chain.end(), IsSentByTheCamera);
}

bool DescribedNode::IsImplemented() const
{
    return std::all_of(m_chain.begin(), m_chain.end(),
                       [](ArvGcFeatureNode* link) { return Holds(arv_gc_feature_node_is_implemented, link, false); });
}

// Now, with an access mode that does not stand in the way.
bool DescribedNode::IsAccessible(ArvGcAccessMode obstacle) const
{
    return !m_isSent && IsImplemented() &&
           std::all_of(m_chain.begin(), m_chain.end(),
                       [obstacle](ArvGcFeatureNode* link)
                       {
                           return arv_gc_feature_node_get_actual_access_mode(link) != obstacle &&
                                  Holds(arv_gc_feature_node_is_available, link, false);
                       });
}

bool DescribedNode::IsReadable() const
{
    return IsAccessible(ARV_GC_ACCESS_MODE_WO);
}

bool DescribedNode::IsWritable() const
{
    return IsAccessible(ARV_GC_ACCESS_MODE_RO) &&
           std::none_of(m_chain.begin(), m_chain.end(),
                        [](ArvGcFeatureNode* link) { return Holds(arv_gc_feature_node_is_locked, link, true); });
}

} // namespace GenICam
