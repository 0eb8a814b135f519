// From the camera API's calls to an open camera.
#include "Device/GenICamCamera.h"

#include "Discovery/DeviceSearch.h"
#include "Features/FeatureHandle.h"

#include <utility>

namespace GenICam
{

namespace
{

using ProviderBase::Guarded;

// The feature that the function finds by its name, under the camera's lock.
template <typename Finder>
ZltErrorType FindFeature(const std::shared_ptr<Connection>& connection, const char* name, ZltApi::FeaturePtr& feature,
                         const Finder& find)
{
    return connection->Run(
        [&]
        {
            FeatureNode* const node = find(name);
            if (node == nullptr)
            {
                return ZltErrorNotFound;
            }
            feature = std::make_shared<FeatureHandle>(connection, *node);
            return ZltErrorSuccess;
        });
}

class CameraStream final : public ZltApi::Stream
{
public:
    explicit CameraStream(std::shared_ptr<Connection> connection) : m_connection(std::move(connection)) {}

    ZltErrorType GetFeatures(std::vector<ZltApi::FeaturePtr>& features) override
    {
        return FeatureHandle::List(m_connection, m_connection->StreamFeatures(), features);
    }

    ZltErrorType GetFeatureByName(const char* name, ZltApi::FeaturePtr& feature) override
    {
        return name != nullptr
                   ? FindFeature(m_connection, name, feature,
                                 [this](const char* wanted) { return m_connection->StreamFeatures().Find(wanted); })
                   : ZltErrorBadParameter;
    }

private:
    const std::shared_ptr<Connection> m_connection;
};

} // namespace

GenICamCamera::GenICamCamera(FoundDevice found, ProviderBase::CameraIdentity identity, std::function<void()> lost)
    : BasicCamera(std::move(identity)),
      m_found(std::move(found)),
      m_lost(std::move(lost))
{
}

std::shared_ptr<Connection> GenICamCamera::Connected() const
{
    const std::lock_guard lock(m_mutex);
    return m_connection;
}

template <typename Action> ZltErrorType GenICamCamera::WithConnection(const Action& action) const noexcept
{
    return Guarded(
        [&]
        {
            const std::shared_ptr<Connection> connection = Connected();
            return connection ? action(connection) : ZltErrorDeviceNotOpen;
        });
}

bool GenICamCamera::IsLost() const
{
    const std::shared_ptr<Connection> connection = Connected();
    return connection && connection->IsLost();
}

std::shared_ptr<Connection> GenICamCamera::Leave()
{
    m_hasLeft = true;
    std::shared_ptr<Connection> connection;
    {
        const std::lock_guard lock(m_mutex);
        connection = std::move(m_connection);
    }
    if (connection)
    {
        connection->End();
    }
    return connection;
}

ZltErrorType GenICamCamera::GetFeatures(std::vector<ZltApi::FeaturePtr>& features)
{
    return WithConnection([&](const std::shared_ptr<Connection>& connection)
                          { return FeatureHandle::List(connection, connection->Features(), features); });
}

ZltErrorType GenICamCamera::GetFeatureByName(const char* name, ZltApi::FeaturePtr& feature)
{
    if (name == nullptr)
    {
        return ZltErrorBadParameter;
    }
    return WithConnection(
        [&](const std::shared_ptr<Connection>& connection)
        {
            return FindFeature(connection, name, feature,
                               [&](const char* wanted) { return connection->FindFeature(wanted); });
        });
}

ZltErrorType GenICamCamera::GetPermittedAccess(std::uint32_t& accessMask) const
{
    return Guarded(
        [&]
        {
            const bool isFree = !m_hasLeft && !m_isInUse && ReadControlState(m_found) == ControlState::Free;
            accessMask = isFree ? ZltApi::AccessModeFull : ZltApi::AccessModeNone;
            return ZltErrorSuccess;
        });
}

ZltErrorType GenICamCamera::Open(ZltApi::AccessMode mode)
{
    if (mode != ZltApi::AccessModeFull)
    {
        return ZltErrorNotSupported;
    }
    return Guarded(
        [&]
        {
            const std::lock_guard control(m_control);
            if (m_hasLeft)
            {
                return ZltErrorNotFound;
            }
            if (m_isOpen)
            {
                return ZltErrorInvalidCall;
            }
            ++m_useCount;
            m_isInUse = true;
            const ZltErrorType result = Guarded([&] { return Connect(); });
            m_isOpen = result == ZltErrorSuccess;
            m_isInUse = m_isOpen;
            return result;
        });
}

ZltErrorType GenICamCamera::Connect()
{
    const auto connection = std::make_shared<Connection>(m_found, m_lost);
    const std::lock_guard lock(m_mutex);
    if (m_hasLeft)
    {
        return ZltErrorNotFound;
    }
    m_connection = connection;
    return ZltErrorSuccess;
}

ZltErrorType GenICamCamera::Close()
{
    return Guarded(
        [&]
        {
            if (const std::shared_ptr<Connection> connection = Connected();
                connection && connection->Stream().IsOwnThread())
            {
                return ZltErrorInvalidCall;
            }
            const std::lock_guard control(m_control);
            if (!m_isOpen)
            {
                return ZltErrorDeviceNotOpen;
            }
            Disconnect();
            m_isOpen = false;
            m_isInUse = false;
            return ZltErrorSuccess;
        });
}

void GenICamCamera::Disconnect()
{
    const std::shared_ptr<Connection> connection = Connected();
    if (!connection)
    {
        return;
    }
    connection->End();
    if (connection->IsLost())
    {
        m_hasLeft = true; // and Leave lets go of it: that takes seconds, for which nobody is to wait here
        return;
    }
    connection->Release();
    const std::lock_guard lock(m_mutex);
    m_connection = nullptr;
}

ZltErrorType GenICamCamera::GetStreams(std::vector<ZltApi::StreamPtr>& streams)
{
    return WithConnection(
        [&](const std::shared_ptr<Connection>& connection)
        {
            return connection->Run(
                [&]
                {
                    streams = {std::make_shared<CameraStream>(connection)};
                    return ZltErrorSuccess;
                });
        });
}

ZltErrorType GenICamCamera::ReadMemory(std::uint64_t address, std::vector<unsigned char>& data)
{
    return WithConnection(
        [&](const std::shared_ptr<Connection>& connection)
        {
            return connection->Run(
                [&]
                {
                    std::vector<unsigned char> bytes(data.size());
                    connection->Memory().Read(address, bytes);
                    data = std::move(bytes);
                    return ZltErrorSuccess;
                });
        });
}

ZltErrorType GenICamCamera::WriteMemory(std::uint64_t address, const std::vector<unsigned char>& data)
{
    return WithConnection(
        [&](const std::shared_ptr<Connection>& connection)
        {
            return connection->Run(
                [&]
                {
                    connection->Memory().Write(address, data);
                    return ZltErrorSuccess;
                });
        });
}

ZltErrorType GenICamCamera::StartContinuousImageAcquisition(std::uint32_t bufferCount,
                                                            const ZltApi::IFrameObserverPtr& observer,
                                                            ZltApi::FrameAllocationMode allocationMode)
{
    if (allocationMode != ZltApi::FrameAllocationAnnounced)
    {
        return ZltErrorNotSupported;
    }
    return WithConnection([&](const std::shared_ptr<Connection>& connection)
                          { return connection->Stream().Start(bufferCount, observer); });
}

ZltErrorType GenICamCamera::StopContinuousImageAcquisition()
{
    return WithConnection([](const std::shared_ptr<Connection>& connection) { return connection->Stream().Stop(); });
}

ZltErrorType GenICamCamera::QueueFrame(const ZltApi::FramePtr& frame)
{
    return WithConnection([&](const std::shared_ptr<Connection>& connection)
                          { return connection->Stream().Queue(frame); });
}

ZltErrorType GenICamCamera::ReleaseAllFrames()
{
    return WithConnection([](const std::shared_ptr<Connection>& connection)
                          { return connection->Stream().ReleaseAll(); });
}

} // namespace GenICam
