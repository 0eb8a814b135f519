// A feature as the camera API hands it out.
#include "Features/FeatureHandle.h"

#include "Device/Connection.h"

#include <algorithm>
#include <chrono>
#include <thread>
#include <utility>

namespace GenICam
{

namespace
{

// What is read behind these commands counts at once, so they take as long as the camera does.
constexpr const char* FileCommand = "FileOperationExecute";
constexpr std::chrono::seconds FileTimeout{30}; // a large file may be written to flash
constexpr std::chrono::milliseconds FilePollInterval{1};

constexpr const char* ResetCommand = "DeviceReset";

class EntryHandle final : public ZltApi::EnumEntry
{
public:
    explicit EntryHandle(FeatureNode::Entry entry) : m_entry(std::move(entry)) {}

    ZltErrorType GetName(std::string& name) const override
    {
        name = m_entry.name;
        return ZltErrorSuccess;
    }
    ZltErrorType GetValue(std::int64_t& value) const override
    {
        value = m_entry.number;
        return ZltErrorSuccess;
    }

private:
    const FeatureNode::Entry m_entry;
};

// Nothing thrown may leave the provider.
template <typename Action> ZltErrorType Guarded(const Action& action) noexcept
{
    try
    {
        return action();
    }
    catch (...)
    {
        return ZltErrorResource;
    }
}

} // namespace

FeatureHandle::FeatureHandle(std::shared_ptr<Connection> connection, FeatureNode& node)
    : m_connection(std::move(connection)),
      m_node(node),
      m_name(node.Name()),
      m_type(node.Type())
{
}

template <typename Value> ZltErrorType FeatureHandle::Read(Value& value) const
{
    return m_connection->Run([&] { return m_node.IsReadable() ? m_node.Get(value) : ZltErrorInvalidAccess; });
}

template <typename Value> ZltErrorType FeatureHandle::Write(const Value& value)
{
    return m_connection->Run([&] { return m_node.IsWritable() ? m_node.Set(value) : ZltErrorInvalidAccess; });
}

ZltErrorType FeatureHandle::GetName(std::string& name) const
{
    return Guarded(
        [&]
        {
            name = m_name;
            return ZltErrorSuccess;
        });
}

ZltErrorType FeatureHandle::GetDataType(ZltFeatureDataType& type) const
{
    type = m_type;
    return ZltErrorSuccess;
}

ZltErrorType FeatureHandle::IsReadable(bool& readable) const
{
    return m_connection->Run(
        [&]
        {
            readable = m_node.IsReadable();
            return ZltErrorSuccess;
        });
}

ZltErrorType FeatureHandle::IsWritable(bool& writable) const
{
    return m_connection->Run(
        [&]
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
    return value != nullptr ? Guarded([&] { return Write(std::string(value)); }) : ZltErrorBadParameter;
}

ZltErrorType FeatureHandle::SetValue(const std::vector<unsigned char>& value)
{
    return Write(value);
}

ZltErrorType FeatureHandle::GetRange(std::int64_t& minimum, std::int64_t& maximum) const
{
    return m_connection->Run([&] { return m_node.Range(minimum, maximum); });
}

ZltErrorType FeatureHandle::GetRange(double& minimum, double& maximum) const
{
    return m_connection->Run([&] { return m_node.Range(minimum, maximum); });
}

ZltErrorType FeatureHandle::GetIncrement(std::int64_t& increment) const
{
    return m_connection->Run([&] { return m_node.Increment(increment); });
}

ZltErrorType FeatureHandle::GetIncrement(double& increment) const
{
    return m_connection->Run([&] { return m_node.Increment(increment); });
}

ZltErrorType FeatureHandle::Entries(std::vector<FeatureNode::Entry>& entries) const
{
    return m_connection->Run([&] { return m_node.Entries(entries); });
}

ZltErrorType FeatureHandle::GetEntry(ZltApi::EnumEntryPtr& entry, const char* name) const
{
    if (name == nullptr)
    {
        return ZltErrorBadParameter;
    }
    return Guarded(
        [&]
        {
            std::vector<FeatureNode::Entry> list;
            const ZltErrorType result = Entries(list);
            const auto found = std::find_if(
                list.begin(), list.end(), [&](const FeatureNode::Entry& candidate) { return candidate.name == name; });
            if (result != ZltErrorSuccess || found == list.end())
            {
                return result != ZltErrorSuccess ? result : ZltErrorNotFound;
            }
            entry = std::make_shared<EntryHandle>(*found);
            return ZltErrorSuccess;
        });
}

ZltErrorType FeatureHandle::GetEntries(std::vector<ZltApi::EnumEntryPtr>& entries) const
{
    return Guarded(
        [&]
        {
            std::vector<FeatureNode::Entry> list;
            std::vector<ZltApi::EnumEntryPtr> handles;
            const ZltErrorType result = Entries(list);
            handles.reserve(list.size());
            for (FeatureNode::Entry& entry : list)
            {
                handles.push_back(std::make_shared<EntryHandle>(std::move(entry)));
            }
            if (result == ZltErrorSuccess)
            {
                entries = std::move(handles);
            }
            return result;
        });
}

ZltErrorType FeatureHandle::GetValues(std::vector<std::string>& names) const
{
    return Guarded(
        [&]
        {
            std::vector<FeatureNode::Entry> list;
            std::vector<std::string> texts;
            const ZltErrorType result = Entries(list);
            texts.reserve(list.size());
            for (FeatureNode::Entry& entry : list)
            {
                texts.push_back(std::move(entry.name));
            }
            if (result == ZltErrorSuccess)
            {
                names = std::move(texts);
            }
            return result;
        });
}

ZltErrorType FeatureHandle::IsValueAvailable(const char* name, bool& available) const
{
    return name != nullptr ? m_connection->Run([&] { return m_node.IsEntryAvailable(name, available); })
                           : ZltErrorBadParameter;
}

ZltErrorType FeatureHandle::RunCommand()
{
    if (m_type != ZltFeatureDataCommand)
    {
        bool unused = false;
        const ZltErrorType result = IsWritable(unused);
        return result == ZltErrorDeviceNotOpen ? result : ZltErrorWrongType;
    }
    const ZltErrorType result =
        m_connection->Run([&] { return m_node.IsWritable() ? m_node.Run() : ZltErrorInvalidAccess; });
    if (m_name == ResetCommand && (result == ZltErrorSuccess || result == ZltErrorTimeout))
    {
        // It may be gone before it could answer.
        m_connection->LoseToRestart();
        return ZltErrorSuccess;
    }
    return result == ZltErrorSuccess && m_name == FileCommand ? WaitUntilDone() : result;
}

ZltErrorType FeatureHandle::WaitUntilDone() const
{
    const auto end = std::chrono::steady_clock::now() + FileTimeout;
    for (;;)
    {
        bool isDone = false;
        const ZltErrorType result = IsCommandDone(isDone);
        if (result != ZltErrorSuccess || isDone)
        {
            return result;
        }
        if (std::chrono::steady_clock::now() > end)
        {
            return ZltErrorTimeout;
        }
        std::this_thread::sleep_for(FilePollInterval);
    }
}

ZltErrorType FeatureHandle::IsCommandDone(bool& done) const
{
    return m_connection->Run([&] { return m_node.IsDone(done); });
}

} // namespace GenICam
