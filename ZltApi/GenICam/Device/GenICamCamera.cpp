// From the camera API's calls to an open camera.
#include "Device/GenICamCamera.h"

#include "Discovery/DeviceSearch.h"
#include "Features/FeatureHandle.h"

#include <utility>

namespace GenICam
{

namespace
{

class CameraStream final : public ZltApi::Stream
{
public:
    explicit CameraStream(std::shared_ptr<Connection> connection) : m_connection(std::move(connection)) {}

    ZltErrorType GetFeatures(std::vector<ZltApi::FeaturePtr>& features) override
    {
        return m_connection->Run(
            [&]
            {
                std::vector<ZltApi::FeaturePtr> list;
                for (FeatureNode* const node : m_connection->StreamFeatures().All())
                {
                    list.push_back(std::make_shared<FeatureHandle>(m_connection, *node));
                }
                features = std::move(list);
                return ZltErrorSuccess;
            });
    }

    ZltErrorType GetFeatureByName(const char* name, ZltApi::FeaturePtr& feature) override
    {
        if (name == nullptr)
        {
            return ZltErrorBadParameter;
        }
        return m_connection->Run(
            [&]
            {
                FeatureNode* const node = m_connection->StreamFeatures().Find(name);
                if (node == nullptr)
                {
                    return ZltErrorNotFound;
                }
                feature = std::make_shared<FeatureHandle>(m_connection, *node);
                return ZltErrorSuccess;
            });
    }

private:
    const std::shared_ptr<Connection> m_connection;
};

// Nothing thrown may leave the provider.
template <typename Action> ZltErrorType Guarded(const Action& action) noexcept
{
    try
    {
        return action();
    }
    catch (const AravisError& error)
    {
        return error.Code();
    }
    catch (const std::bad_alloc&)
    {
        return ZltErrorResource;
    }
    catch (...)
    {
        return ZltErrorUnexpectedFault;
    }
}

ZltErrorType Copy(const std::string& from, std::string& to)
{
    return Guarded(
        [&]
        {
            to = from;
            return ZltErrorSuccess;
        });
}

} // namespace

GenICamCamera::GenICamCamera(FoundDevice found, std::string name, ZltApi::TransportLayerPtr transportLayer,
                             std::string interfaceId, std::function<void()> lost)
    : m_found(std::move(found)),
      m_name(std::move(name)),
      m_transportLayer(std::move(transportLayer)),
      m_interfaceId(std::move(interfaceId)),
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
    return WithConnection(
        [&](const std::shared_ptr<Connection>& connection)
        {
            return connection->Run(
                [&]
                {
                    std::vector<ZltApi::FeaturePtr> list;
                    for (FeatureNode* const node : connection->Features().All())
                    {
                        if (node->IsImplemented())
                        {
                            list.push_back(std::make_shared<FeatureHandle>(connection, *node));
                        }
                    }
                    features = std::move(list);
                    return ZltErrorSuccess;
                });
        });
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
            return connection->Run(
                [&]
                {
                    FeatureNode* const node = connection->FindFeature(name);
                    if (node == nullptr)
                    {
                        return ZltErrorNotFound;
                    }
                    feature = std::make_shared<FeatureHandle>(connection, *node);
                    return ZltErrorSuccess;
                });
        });
}

ZltErrorType GenICamCamera::GetID(std::string& id) const
{
    return Copy(m_found.id, id);
}

ZltErrorType GenICamCamera::GetName(std::string& name) const
{
    return Copy(m_name, name);
}

ZltErrorType GenICamCamera::GetModel(std::string& model) const
{
    return Copy(m_found.model, model);
}

ZltErrorType GenICamCamera::GetSerialNumber(std::string& serialNumber) const
{
    return Copy(m_found.serialNumber, serialNumber);
}

ZltErrorType GenICamCamera::GetInterfaceID(std::string& interfaceId) const
{
    return Copy(m_interfaceId, interfaceId);
}

ZltErrorType GenICamCamera::GetTransportLayer(ZltApi::TransportLayerPtr& transportLayer) const
{
    transportLayer = m_transportLayer;
    return ZltErrorSuccess;
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
