// Entries and values of an enumeration feature.
#include "Features/EnumNode.h"

#include <algorithm>
#include <utility>

namespace Simulation
{

namespace
{

std::vector<EnumNode::Entry> Numbered(const std::vector<std::string>& names)
{
    std::vector<EnumNode::Entry> entries;
    entries.reserve(names.size());
    for (const auto& name : names)
    {
        entries.emplace_back(name, static_cast<std::int64_t>(entries.size()));
    }
    return entries;
}

} // namespace

EnumNode::EnumNode(std::string name, std::string value, std::vector<Entry> entries)
    : FeatureNode(std::move(name), ZltFeatureDataEnumeration),
      m_initial(value),
      m_value(std::move(value)),
      m_entries(std::move(entries))
{
}

EnumNode::EnumNode(std::string name, std::string value, const std::vector<std::string>& entries)
    : EnumNode(std::move(name), std::move(value), Numbered(entries))
{
}

const EnumNode::Entry* EnumNode::Find(const std::string& name) const
{
    const auto found =
        std::find_if(m_entries.begin(), m_entries.end(), [&](const Entry& entry) { return entry.name == name; });
    return found == m_entries.end() ? nullptr : &*found;
}

std::int64_t EnumNode::CurrentNumber() const
{
    const Entry* const entry = Find(Current());
    return entry ? entry->number : -1;
}

ZltErrorType EnumNode::Get(std::int64_t& number) const
{
    number = CurrentNumber();
    return ZltErrorSuccess;
}

ZltErrorType EnumNode::Get(std::string& name) const
{
    name = Current();
    return ZltErrorSuccess;
}

ZltErrorType EnumNode::Set(std::int64_t number)
{
    const auto found =
        std::find_if(m_entries.begin(), m_entries.end(), [&](const Entry& entry) { return entry.number == number; });
    return Store(found == m_entries.end() ? nullptr : &*found);
}

ZltErrorType EnumNode::Set(const std::string& name)
{
    return Store(Find(name));
}

ZltErrorType EnumNode::Store(const Entry* entry)
{
    if (!entry || !IsAvailable(*entry))
    {
        return ZltErrorInvalidValue;
    }
    const ZltErrorType result = m_writer ? m_writer(entry->name) : ZltErrorSuccess;
    if (result == ZltErrorSuccess)
    {
        m_value = entry->name;
    }
    return result;
}

ZltErrorType EnumNode::ListEntries(std::vector<BasicNode::Entry>& entries) const
{
    entries.assign(m_entries.begin(), m_entries.end());
    return ZltErrorSuccess;
}

ZltErrorType EnumNode::IsEntryAvailable(const std::string& name, bool& available) const
{
    const Entry* const entry = Find(name);
    if (!entry)
    {
        return ZltErrorNotFound;
    }
    available = IsAvailable(*entry);
    return ZltErrorSuccess;
}

bool EnumNode::Restore(const std::string& text)
{
    const Entry* const entry = Find(text);
    if (!entry || !IsAvailable(*entry))
    {
        return false;
    }
    m_value = text;
    return true;
}

} // namespace Simulation
