// A feature as the camera API hands it out.
#include "Features/FeatureHandle.h"

#include "Device/Connection.h"

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

} // namespace

FeatureHandle::FeatureHandle(std::shared_ptr<Connection> connection, FeatureNode& node)
    : BasicFeature(node),
      m_connection(std::move(connection))
{
}

ZltErrorType FeatureHandle::List(const std::shared_ptr<Connection>& connection, const FeatureMap& map,
                                 std::vector<ZltApi::FeaturePtr>& features)
{
    return connection->Run(
        [&]
        {
            std::vector<ZltApi::FeaturePtr> list;
            for (FeatureNode* const node : map.All())
            {
                if (node->IsImplemented())
                {
                    list.push_back(std::make_shared<FeatureHandle>(connection, *node));
                }
            }
            features = std::move(list);
            return ZltErrorSuccess;
        });
}

ZltErrorType FeatureHandle::Enter(const char* /*operation*/, const Action& action) const
{
    return m_connection->Run(action);
}

ZltErrorType FeatureHandle::RunCommand()
{
    if (Node().Name() == ResetCommand && Node().Type() == ZltFeatureDataCommand)
    {
        return Restart();
    }
    const ZltErrorType result = BasicFeature::RunCommand();
    return result == ZltErrorSuccess && Node().Name() == FileCommand ? WaitUntilDone() : result;
}

// The camera may be gone before it could answer.
ZltErrorType FeatureHandle::Restart()
{
    m_connection->ExpectRestart(true);
    const ZltErrorType result = BasicFeature::RunCommand();
    if (result == ZltErrorSuccess || result == ZltErrorTimeout)
    {
        m_connection->Lose();
        return ZltErrorSuccess;
    }
    m_connection->ExpectRestart(false);
    return result;
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

} // namespace GenICam
