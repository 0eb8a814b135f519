// The controller's list of cameras: plug events, rebuilds, access and support of the correction.
#include "AsynchronousCameraController.h"

#include "CamerasList.h"
#include "DpcAdapterManager.h"
#include "TransportLayerFilter.h"
#include "ZltCamera.h"

#include <boost/make_shared.hpp>

#include <algorithm>

namespace
{

using ZltApi::CameraPtr;
using IdentityQuery = ZltErrorType (ZltApi::Camera::*)(std::string&) const;

QString Identity(const ZltApi::Camera& camera, IdentityQuery query, const char* placeHolder)
{
    std::string text;
    return (camera.*query)(text) == ZltErrorSuccess ? QString::fromStdString(text) : QString::fromLatin1(placeHolder);
}

bool HasId(const ZltApi::Camera& camera, const std::string& id)
{
    std::string own;
    return camera.GetID(own) == ZltErrorSuccess && own == id;
}

bool IsFullAccess(std::uint32_t permitted)
{
    return (permitted & ZltApi::AccessModeFull) != 0;
}

// A camera that cannot tell its transport layer is not foreign.
bool IsForeign(const ZltApi::Camera& camera)
{
    ZltApi::TransportLayerPtr layer;
    std::string vendor;
    std::string name;
    return camera.GetTransportLayer(layer) == ZltErrorSuccess && layer && layer->GetVendor(vendor) == ZltErrorSuccess &&
           layer->GetName(name) == ZltErrorSuccess && !TransportLayerFilter::TLisSupported(vendor, name);
}

template <class List, class Condition> void EraseIf(List& list, Condition condition)
{
    list.erase(std::remove_if(list.begin(), list.end(), condition), list.end());
}

} // namespace

void AsynchronousCameraController::TryRefreshList()
{
    UpdateCameraList();
}

void AsynchronousCameraController::OnCameraListChanged(ZltApi::CameraPtr camera, ZltApi::UpdateTriggerType reason)
{
    if (camera && IsForeign(*camera))
    {
        return;
    }
    const Operation operation(*this);
    if (camera)
    {
        switch (reason)
        {
        case ZltApi::UpdateTriggerUnplugged:
            RemoveCamera(camera);
            break;
        case ZltApi::UpdateTriggerStateChanged:
            CheckAccessState(camera);
            break;
        case ZltApi::UpdateTriggerPluggedIn:
            AddCamera(camera);
            break;
        }
    }
    TryRefreshList();
}

void AsynchronousCameraController::UpdateCameraList()
{
    const Operation operation(*this);
    m_cameras = m_api.GetCameraList();
    if (m_cameras.empty())
    {
        m_listUpdates.PostClear();
        m_cameraInfos.clear();
        CloseSelectedCamera();
        return;
    }
    const int selected = FindSelectedCamera();
    if (selected < 0)
    {
        m_cameraId.clear();
        CloseSelectedCamera();
    }
    else
    {
        m_cameraIndex = selected;
    }
    CheckIfListHasChanged();
    m_listUpdates.PostClear();
    const std::vector<CameraPtr> cameras = m_cameras;
    for (const CameraPtr& camera : cameras)
    {
        AddCamera(camera);
    }
}

// -1 when there is none.
int AsynchronousCameraController::FindSelectedCamera() const
{
    const auto found = std::find_if(m_cameras.begin(), m_cameras.end(),
                                    [this](const CameraPtr& camera) { return HasId(*camera, m_cameraId); });
    return found != m_cameras.end() ? static_cast<int>(found - m_cameras.begin()) : -1;
}

void AsynchronousCameraController::CloseSelectedCamera()
{
    m_api.CloseCamera();
    StopIfStreaming();
    m_cameraIndex = -1;
    AnnounceLostSelection();
}

// Forgets the status of cameras that have gone.
void AsynchronousCameraController::CheckIfListHasChanged()
{
    std::vector<CameraInfo> present;
    for (const CameraPtr& camera : m_cameras)
    {
        const auto info = std::find(m_cameraInfos.begin(), m_cameraInfos.end(), camera);
        if (info != m_cameraInfos.end())
        {
            present.push_back(*info);
        }
    }
    if (present.size() < m_cameraInfos.size())
    {
        m_cameraInfos = std::move(present);
    }
}

void AsynchronousCameraController::AddCamera(const ZltApi::CameraPtr& camera)
{
    if (std::find(m_cameras.begin(), m_cameras.end(), camera) == m_cameras.end())
    {
        m_cameras.push_back(camera);
    }
    CameraInfo info;
    info.camera = camera;
    const auto known = std::find(m_cameraInfos.begin(), m_cameraInfos.end(), camera);
    const bool isKnown = known != m_cameraInfos.end();
    if (isKnown)
    {
        info = *known;
    }
    const QString name = Identity(*camera, &ZltApi::Camera::GetName, "[NoName]");
    const QString serial = Identity(*camera, &ZltApi::Camera::GetSerialNumber, "[NoSerialNumber]");
    const QString interfaceId = Identity(*camera, &ZltApi::Camera::GetInterfaceID, "[NoInterfaceID]");
    const QString model = Identity(*camera, &ZltApi::Camera::GetModel, "[NoModelName]");
    if (camera->GetID(info.id) != ZltErrorSuccess)
    {
        return;
    }
    if (!isKnown)
    {
        if (!CheckIfCameraOccuredInFileList(info))
        {
            CheckAccessAndDPC(camera, info.accessible, info.dpcSupported, info.accessChecked);
            if (info.accessible)
            {
                m_cameraAccessInfos.push_back({info.dpcSupported, info.id});
            }
        }
        m_cameraInfos.push_back(info);
    }
    else if (!info.accessChecked)
    {
        CheckAccessAndDPC(camera, info.accessible, info.dpcSupported, info.accessChecked);
        *known = info;
    }
    const QString id = QString::fromStdString(info.id);
    m_listUpdates.Post([=, dpc = info.dpcSupported, access = info.accessible](CamerasList& list)
                       { list.AddItemToList(name, model, id, serial, interfaceId, dpc, access); });
}

// Fills in what the file tells of the camera; the last entry counts. A camera that cannot tell its access counts as
// accessible.
bool AsynchronousCameraController::CheckIfCameraOccuredInFileList(CameraInfo& info) const
{
    for (const CameraAccessInfo& remembered : m_cameraAccessInfos)
    {
        if (remembered.id == info.id)
        {
            std::uint32_t permitted = ZltApi::AccessModeFull;
            info.camera->GetPermittedAccess(permitted);
            info.dpcSupported = remembered.dpcSupported;
            info.accessible = IsFullAccess(permitted);
            info.accessChecked = true;
        }
    }
    return info.accessChecked;
}

// Opens the camera for a moment: there is no other way to learn what it supports.
void AsynchronousCameraController::CheckAccessAndDPC(const ZltApi::CameraPtr& camera, bool& accessible,
                                                     bool& dpcSupported, bool& accessChecked) const
{
    accessible = camera->Open(ZltApi::AccessModeFull) == ZltErrorSuccess;
    accessChecked = accessible;
    if (accessible)
    {
        dpcSupported = KTR::DPC::DpcAdapterManager::IsCompatible(boost::make_shared<KTR::DPC::ZltCamera>(camera));
        camera->Close();
    }
}

// Looks at all cameras, whichever has changed.
void AsynchronousCameraController::CheckAccessState(const ZltApi::CameraPtr& /*camera*/)
{
    std::uint32_t permitted = ZltApi::AccessModeFull;
    for (CameraInfo& info : m_cameraInfos)
    {
        const auto found = std::find(m_cameras.begin(), m_cameras.end(), info.camera);
        if (info.accessFrozen || found == m_cameras.end())
        {
            continue;
        }
        const int row = static_cast<int>(found - m_cameras.begin());
        if (info.camera->GetPermittedAccess(permitted) == ZltErrorSuccess && info.id != m_cameraId)
        {
            info.accessible = IsFullAccess(permitted);
            m_listUpdates.Post([row, access = info.accessible](CamerasList& list)
                               { list.ChangeCurrentAccess(row, access); });
        }
        if (!info.accessChecked)
        {
            CheckAccessAndDPC(info.camera, info.accessible, info.dpcSupported, info.accessChecked);
            if (info.accessChecked)
            {
                m_cameraAccessInfos.push_back({info.dpcSupported, info.id});
                m_listUpdates.Post([row, dpc = info.dpcSupported](CamerasList& list)
                                   { list.ChangeCurrentDpcSupport(row, dpc); });
            }
        }
    }
}

void AsynchronousCameraController::RemoveCamera(const ZltApi::CameraPtr& camera)
{
    if (camera == m_currentCamera)
    {
        StopIfStreaming();
        m_api.CloseCamera();
        Announce([this] { Q_EMIT CameraDisconnected(); });
    }
    std::string id;
    camera->GetID(id);
    EraseIf(m_cameras, [&](const CameraPtr& other) { return other == camera; });
    EraseIf(m_cameraInfos, [&](const CameraInfo& info) { return info == camera; });
    EraseIf(m_cameraAccessInfos, [&](const CameraAccessInfo& info) { return info.id == id; });
    m_listUpdates.Post(
        [id](CamerasList& list)
        {
            const QList<CamerasInfo*>& rows = list.GetCamerasList();
            const auto found = std::find_if(rows.begin(), rows.end(),
                                            [&](const CamerasInfo* row) { return row->ID.toStdString() == id; });
            list.RemoveItemFromList(static_cast<int>(found - rows.begin()));
        });
}
