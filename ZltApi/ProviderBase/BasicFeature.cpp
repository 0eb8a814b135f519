// A feature as the camera API hands it out.
#include "BasicFeature.h"

#include "Guarded.h"

#include <algorithm>
#include <memory>
#include <type_traits>

namespace ProviderBase
{

namespace
{

class EntryHandle final : public ZltApi::EnumEntry
{
public:
    explicit EntryHandle(BasicNode::Entry entry) : m_entry(std::move(entry)) {}

    ZltErrorType GetName(std::string& name) const override { return Copy(m_entry.name, name); }
    ZltErrorType GetValue(std::int64_t& value) const override
    {
        value = m_entry.number;
        return ZltErrorSuccess;
    }

private:
    const BasicNode::Entry m_entry;
};

// Asks for the entries and turns them into what is wanted; on failure that is left alone.
template <typename Wanted, typename Turn>
ZltErrorType Turned(const BasicNode& node, std::vector<Wanted>& wanted, const Turn& turn)
{
    std::vector<BasicNode::Entry> entries;
    const ZltErrorType result = node.ListEntries(entries);
    if (result == ZltErrorSuccess)
    {
        std::vector<Wanted> turned;
        std::transform(entries.begin(), entries.end(), std::back_inserter(turned), turn);
        wanted = std::move(turned);
    }
    return result;
}

} // namespace

ZltErrorType BasicFeature::GetName(std::string& name) const
{
    return Copy(m_node.Name(), name);
}

ZltErrorType BasicFeature::GetDataType(ZltFeatureDataType& type) const
{
    type = m_node.Type();
    return ZltErrorSuccess;
}

ZltErrorType BasicFeature::IsReadable(bool& readable) const
{
    return Pass("IsReadable",
                [&]
                {
                    readable = m_node.IsReadable();
                    return ZltErrorSuccess;
                });
}

ZltErrorType BasicFeature::IsWritable(bool& writable) const
{
    return Pass("IsWritable",
                [&]
                {
                    writable = m_node.IsWritable();
                    return ZltErrorSuccess;
                });
}

ZltErrorType BasicFeature::Read(const Target& target) const
{
    return Pass("GetValue", [&] { return ReadNow(target); });
}

ZltErrorType BasicFeature::ReadNow(const Target& target) const
{
    if (m_node.Type() != ZltFeatureDataCommand && !m_node.IsReadable())
    {
        return ZltErrorInvalidAccess;
    }
    return std::visit(
        [this](auto* value)
        {
            std::remove_pointer_t<decltype(value)> read{};
            const ZltErrorType result = m_node.Get(read);
            if (result == ZltErrorSuccess)
            {
                *value = std::move(read);
            }
            return result;
        },
        target);
}

ZltErrorType BasicFeature::Write(const Source& source)
{
    return Pass("SetValue", [&] { return WriteNow(source); });
}

ZltErrorType BasicFeature::WriteNow(const Source& source)
{
    return m_node.IsWritable() ? std::visit([this](const auto* value) { return m_node.Set(*value); }, source)
                               : ZltErrorInvalidAccess;
}

ZltErrorType BasicFeature::SetValue(const char* value)
{
    if (value == nullptr)
    {
        return ZltErrorBadParameter;
    }
    return Guarded(
        [&]
        {
            const std::string text(value);
            return Write(&text);
        });
}

ZltErrorType BasicFeature::GetRange(std::int64_t& minimum, std::int64_t& maximum) const
{
    return Pass("GetRange", [&] { return m_node.Range(minimum, maximum); });
}

ZltErrorType BasicFeature::GetRange(double& minimum, double& maximum) const
{
    return Pass("GetRange", [&] { return m_node.Range(minimum, maximum); });
}

ZltErrorType BasicFeature::GetIncrement(std::int64_t& increment) const
{
    return Pass("GetIncrement", [&] { return m_node.Increment(increment); });
}

ZltErrorType BasicFeature::GetIncrement(double& increment) const
{
    return Pass("GetIncrement", [&] { return m_node.Increment(increment); });
}

ZltErrorType BasicFeature::GetEntry(ZltApi::EnumEntryPtr& entry, const char* name) const
{
    if (name == nullptr)
    {
        return ZltErrorBadParameter;
    }
    return Pass("GetEntry",
                [&]
                {
                    std::vector<BasicNode::Entry> list;
                    const ZltErrorType result = m_node.ListEntries(list);
                    const auto found =
                        std::find_if(list.begin(), list.end(),
                                     [&](const BasicNode::Entry& candidate) { return candidate.name == name; });
                    if (found == list.end())
                    {
                        return result != ZltErrorSuccess ? result : ZltErrorNotFound;
                    }
                    entry = std::make_shared<EntryHandle>(std::move(*found));
                    return ZltErrorSuccess;
                });
}

ZltErrorType BasicFeature::GetEntries(std::vector<ZltApi::EnumEntryPtr>& entries) const
{
    return Pass("GetEntries",
                [&]
                {
                    return Turned(m_node, entries,
                                  [](BasicNode::Entry& entry)
                                  { return std::make_shared<EntryHandle>(std::move(entry)); });
                });
}

ZltErrorType BasicFeature::GetValues(std::vector<std::string>& names) const
{
    return Pass("GetEntries",
                [&] { return Turned(m_node, names, [](BasicNode::Entry& entry) { return std::move(entry.name); }); });
}

ZltErrorType BasicFeature::IsValueAvailable(const char* name, bool& available) const
{
    return name != nullptr ? Pass("IsValueAvailable", [&] { return m_node.IsEntryAvailable(name, available); })
                           : ZltErrorBadParameter;
}

ZltErrorType BasicFeature::RunCommand()
{
    return Pass("RunCommand", [&] { return RunNow(); });
}

ZltErrorType BasicFeature::RunNow()
{
    if (m_node.Type() != ZltFeatureDataCommand)
    {
        return ZltErrorWrongType;
    }
    return m_node.IsWritable() ? m_node.Run() : ZltErrorInvalidAccess;
}

ZltErrorType BasicFeature::IsCommandDone(bool& done) const
{
    return Pass("IsCommandDone", [&] { return m_node.IsDone(done); });
}

} // namespace ProviderBase
