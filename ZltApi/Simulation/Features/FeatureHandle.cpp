// Access rules and faults of the features as the camera API hands them out.
#include "Features/FeatureHandle.h"

#include "Features/EnumNode.h"

#include <algorithm>
#include <type_traits>
#include <utility>

namespace Simulation
{

namespace
{

class EntryHandle final : public ZltApi::EnumEntry
{
public:
    explicit EntryHandle(const EnumNode::Entry& entry) : m_name(entry.name), m_number(entry.number) {}

    ZltErrorType GetName(std::string& name) const override
    {
        name = m_name;
        return ZltErrorSuccess;
    }
    ZltErrorType GetValue(std::int64_t& value) const override
    {
        value = m_number;
        return ZltErrorSuccess;
    }

private:
    const std::string m_name;
    const std::int64_t m_number;
};

// What a fault does to a value that was read.
template <typename Value> void Distort(const FeatureNode& node, const FaultEffect& effect, Value& value)
{
    if constexpr (std::is_same_v<Value, FeatureNode::Bytes>)
    {
        value.resize(value.size() - std::min<std::size_t>(value.size(), effect.shortBy));
    }
    else if constexpr (std::is_same_v<Value, std::string>)
    {
        value = effect.value.value_or(value);
    }
    else if constexpr (std::is_same_v<Value, std::int64_t>)
    {
        const auto* const enumeration = dynamic_cast<const EnumNode*>(&node);
        if (enumeration && effect.value)
        {
            const EnumNode::Entry* const entry = enumeration->Find(*effect.value);
            value = entry ? entry->number : -1;
        }
    }
}

} // namespace

FeatureHandle::FeatureHandle(std::shared_ptr<FeatureAccess> access, FeatureNode& node)
    : m_access(std::move(access)),
      m_node(node)
{
}

ZltErrorType FeatureHandle::List(const std::shared_ptr<FeatureAccess>& access,
                                 std::vector<ZltApi::FeaturePtr>& features)
{
    return access->gate.Run("GetFeatures", {},
                            [&](const FaultEffect&)
                            {
                                features.clear();
                                for (FeatureNode* const node : access->features.Shown())
                                {
                                    features.push_back(std::make_shared<FeatureHandle>(access, *node));
                                }
                                return ZltErrorSuccess;
                            });
}

ZltErrorType FeatureHandle::Find(const std::shared_ptr<FeatureAccess>& access, const char* name,
                                 ZltApi::FeaturePtr& feature)
{
    if (!name)
    {
        return ZltErrorBadParameter;
    }
    return access->gate.Run("GetFeatureByName", name,
                            [&](const FaultEffect&)
                            {
                                FeatureNode* const node = access->features.Find(name);
                                if (!node)
                                {
                                    return ZltErrorNotFound;
                                }
                                feature = std::make_shared<FeatureHandle>(access, *node);
                                return ZltErrorSuccess;
                            });
}

template <typename Action> ZltErrorType FeatureHandle::Run(const char* operation, const Action& action) const
{
    return m_access->gate.Run(operation, m_node.Name(), action);
}

template <typename Value> ZltErrorType FeatureHandle::Read(Value& value) const
{
    return Run("GetValue",
               [&](const FaultEffect& effect)
               {
                   Value read{};
                   if (!m_node.IsReadable())
                   {
                       return ZltErrorInvalidAccess;
                   }
                   const ZltErrorType result = m_node.Get(read);
                   if (result == ZltErrorSuccess)
                   {
                       Distort(m_node, effect, read);
                       value = std::move(read);
                   }
                   return result;
               });
}

template <typename Value> ZltErrorType FeatureHandle::Write(const Value& value)
{
    return Run("SetValue",
               [&](const FaultEffect&)
               {
                   if (!m_node.IsWritable())
                   {
                       return ZltErrorInvalidAccess;
                   }
                   const ZltErrorType result = m_node.Set(value);
                   if (result == ZltErrorSuccess && m_node.IsKeptAtOnce() && m_access->keep)
                   {
                       m_access->keep();
                   }
                   return result;
               });
}

ZltErrorType FeatureHandle::GetName(std::string& name) const
{
    name = m_node.Name();
    return ZltErrorSuccess;
}

ZltErrorType FeatureHandle::GetDataType(ZltFeatureDataType& type) const
{
    type = m_node.Type();
    return ZltErrorSuccess;
}

ZltErrorType FeatureHandle::IsReadable(bool& readable) const
{
    return Run("IsReadable",
               [&](const FaultEffect&)
               {
                   readable = m_node.Type() != ZltFeatureDataCommand && m_node.IsReadable();
                   return ZltErrorSuccess;
               });
}

ZltErrorType FeatureHandle::IsWritable(bool& writable) const
{
    return Run("IsWritable",
               [&](const FaultEffect&)
               {
                   writable = m_node.IsWritable();
                   return ZltErrorSuccess;
               });
}

ZltErrorType FeatureHandle::GetValue(bool& value) const
{
    return Read(value);
}

ZltErrorType FeatureHandle::GetValue(std::int64_t& value) const
{
    return Read(value);
}

ZltErrorType FeatureHandle::GetValue(double& value) const
{
    return Read(value);
}

ZltErrorType FeatureHandle::GetValue(std::string& value) const
{
    return Read(value);
}

ZltErrorType FeatureHandle::GetValue(std::vector<unsigned char>& value) const
{
    return Read(value);
}

ZltErrorType FeatureHandle::SetValue(bool value)
{
    return Write(value);
}

ZltErrorType FeatureHandle::SetValue(std::int64_t value)
{
    return Write(value);
}

ZltErrorType FeatureHandle::SetValue(double value)
{
    return Write(value);
}

ZltErrorType FeatureHandle::SetValue(const char* value)
{
    return value ? Write(std::string(value)) : ZltErrorBadParameter;
}

ZltErrorType FeatureHandle::SetValue(const std::vector<unsigned char>& value)
{
    return Write(value);
}

ZltErrorType FeatureHandle::GetRange(std::int64_t& minimum, std::int64_t& maximum) const
{
    return Run("GetRange", [&](const FaultEffect&) { return m_node.Range(minimum, maximum); });
}

ZltErrorType FeatureHandle::GetRange(double& minimum, double& maximum) const
{
    return Run("GetRange", [&](const FaultEffect&) { return m_node.Range(minimum, maximum); });
}

ZltErrorType FeatureHandle::GetIncrement(std::int64_t& increment) const
{
    return Run("GetIncrement", [&](const FaultEffect&) { return m_node.Increment(increment); });
}

ZltErrorType FeatureHandle::GetIncrement(double& increment) const
{
    return Run("GetIncrement", [&](const FaultEffect&) { return m_node.Increment(increment); });
}

template <typename Action> ZltErrorType FeatureHandle::RunOnEnum(const char* operation, const Action& action) const
{
    return Run(operation,
               [&](const FaultEffect&)
               {
                   const auto* const enumeration = dynamic_cast<const EnumNode*>(&m_node);
                   return enumeration ? action(*enumeration) : ZltErrorWrongType;
               });
}

ZltErrorType FeatureHandle::GetEntry(ZltApi::EnumEntryPtr& entry, const char* name) const
{
    if (!name)
    {
        return ZltErrorBadParameter;
    }
    return RunOnEnum("GetEntry",
                     [&](const EnumNode& enumeration)
                     {
                         const EnumNode::Entry* const found = enumeration.Find(name);
                         if (!found)
                         {
                             return ZltErrorNotFound;
                         }
                         entry = std::make_shared<EntryHandle>(*found);
                         return ZltErrorSuccess;
                     });
}

ZltErrorType FeatureHandle::GetEntries(std::vector<ZltApi::EnumEntryPtr>& entries) const
{
    return RunOnEnum("GetEntries",
                     [&](const EnumNode& enumeration)
                     {
                         entries.clear();
                         for (const auto& entry : enumeration.Entries())
                         {
                             entries.push_back(std::make_shared<EntryHandle>(entry));
                         }
                         return ZltErrorSuccess;
                     });
}

ZltErrorType FeatureHandle::GetValues(std::vector<std::string>& names) const
{
    return RunOnEnum("GetEntries",
                     [&](const EnumNode& enumeration)
                     {
                         names.clear();
                         for (const auto& entry : enumeration.Entries())
                         {
                             names.push_back(entry.name);
                         }
                         return ZltErrorSuccess;
                     });
}

ZltErrorType FeatureHandle::IsValueAvailable(const char* name, bool& available) const
{
    if (!name)
    {
        return ZltErrorBadParameter;
    }
    return RunOnEnum("IsValueAvailable",
                     [&](const EnumNode& enumeration)
                     {
                         const EnumNode::Entry* const found = enumeration.Find(name);
                         if (!found)
                         {
                             return ZltErrorNotFound;
                         }
                         available = EnumNode::IsAvailable(*found);
                         return ZltErrorSuccess;
                     });
}

ZltErrorType FeatureHandle::RunCommand()
{
    return Run("RunCommand",
               [&](const FaultEffect& effect)
               {
                   if (m_node.Type() != ZltFeatureDataCommand)
                   {
                       return ZltErrorWrongType;
                   }
                   if (!m_node.IsWritable())
                   {
                       return ZltErrorInvalidAccess;
                   }
                   if (effect.hang)
                   {
                       m_node.Hang();
                       return ZltErrorSuccess;
                   }
                   return m_node.Run();
               });
}

ZltErrorType FeatureHandle::IsCommandDone(bool& done) const
{
    return Run("IsCommandDone", [&](const FaultEffect&) { return m_node.IsDone(done); });
}

} // namespace Simulation
