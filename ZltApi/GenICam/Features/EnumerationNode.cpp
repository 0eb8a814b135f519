// An enumeration feature.
#include "Features/EnumerationNode.h"

#include "Aravis/Ask.h"

#include <algorithm>

namespace GenICam
{

namespace
{

const char* NameOf(ArvGcEnumEntry* entry)
{
    return arv_gc_feature_node_get_name(ARV_GC_FEATURE_NODE(entry));
}

bool IsOffered(ArvGcEnumEntry* entry)
{
    return Holds(arv_gc_feature_node_is_implemented, ARV_GC_FEATURE_NODE(entry), false) &&
           Holds(arv_gc_feature_node_is_available, ARV_GC_FEATURE_NODE(entry), false);
}

} // namespace

// Aravis has a list of its own, in the reverse order.
EnumerationNode::EnumerationNode(ArvGcFeatureNode* node, std::string name)
    : DescribedNode(node, std::move(name), ZltFeatureDataEnumeration),
      m_enumeration(ARV_GC_ENUMERATION(node))
{
    for (ArvDomNode* child = arv_dom_node_get_first_child(ARV_DOM_NODE(node)); child != nullptr;
         child = arv_dom_node_get_next_sibling(child))
    {
        if (ARV_IS_GC_ENUM_ENTRY(child) && NameOf(ARV_GC_ENUM_ENTRY(child)) != nullptr)
        {
            m_entries.push_back(ARV_GC_ENUM_ENTRY(child));
        }
    }
}

ArvGcEnumEntry* EnumerationNode::Find(const std::string& name) const
{
    const auto found =
        std::find_if(m_entries.begin(), m_entries.end(), [&](ArvGcEnumEntry* entry) { return name == NameOf(entry); });
    return found != m_entries.end() ? *found : nullptr;
}

ZltErrorType EnumerationNode::Get(std::int64_t& value) const
{
    value = Ask(arv_gc_enumeration_get_int_value, m_enumeration);
    return ZltErrorSuccess;
}

ZltErrorType EnumerationNode::Get(std::string& value) const
{
    const gint64 number = Ask(arv_gc_enumeration_get_int_value, m_enumeration);
    for (ArvGcEnumEntry* const entry : m_entries)
    {
        if (Ask(arv_gc_enum_entry_get_value, entry) == number)
        {
            value = NameOf(entry);
            return ZltErrorSuccess;
        }
    }
    return ZltErrorInvalidValue;
}

ZltErrorType EnumerationNode::Select(ArvGcEnumEntry* entry)
{
    if (entry == nullptr || !IsOffered(entry))
    {
        return ZltErrorInvalidValue;
    }
    Ask(arv_gc_enumeration_set_int_value, m_enumeration, Ask(arv_gc_enum_entry_get_value, entry));
    return ZltErrorSuccess;
}

ZltErrorType EnumerationNode::Set(std::int64_t value)
{
    const auto found =
        std::find_if(m_entries.begin(), m_entries.end(),
                     [&](ArvGcEnumEntry* entry) { return Ask(arv_gc_enum_entry_get_value, entry) == value; });
    return Select(found != m_entries.end() ? *found : nullptr);
}

ZltErrorType EnumerationNode::Set(const std::string& value)
{
    return Select(Find(value));
}

ZltErrorType EnumerationNode::ListEntries(std::vector<Entry>& entries) const
{
    std::vector<Entry> list;
    for (ArvGcEnumEntry* const entry : m_entries)
    {
        list.push_back({NameOf(entry), Ask(arv_gc_enum_entry_get_value, entry)});
    }
    entries = std::move(list);
    return ZltErrorSuccess;
}

ZltErrorType EnumerationNode::IsEntryAvailable(const std::string& name, bool& available) const
{
    ArvGcEnumEntry* const entry = Find(name);
    if (entry == nullptr)
    {
        return ZltErrorNotFound;
    }
    available = IsOffered(entry);
    return ZltErrorSuccess;
}

} // namespace GenICam
