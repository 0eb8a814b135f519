// The controller's work on correction sets: listing, reading, writing, switching and restoring them.
#include "AsynchronousCameraController.h"

#include "CameraStreamStateHolder.h"
#include "CorrectionSetData.h"
#include "DefectUiType.h"
#include "DpcAdapter.h"
#include "DpcAdapterManager.h"
#include "Exception.h"
#include "SensorDefectConversion.h"
#include "TreeModel.h"
#include "ZltCamera.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QScopeGuard>
#include <QStringList>
#include <QThread>

#include <boost/make_shared.hpp>

#include <algorithm>
#include <exception>
#include <memory>

namespace
{

using KTR::DPC::DpcAdapter;
using KTR::DPC::SensorDefectList;
using KTR::System::Exception;
using CorrectionSetPtr = DpcAdapter::CorrectionSetPtr;

QString Text(const Exception& failure)
{
    return QString::fromStdString(failure.ToString());
}

// Null when there is no camera, or none whose correction we know. An adapter is made anew for each operation.
boost::shared_ptr<DpcAdapter> MakeAdapter(const ZltApi::CameraPtr& camera)
{
    if (!camera)
    {
        return nullptr;
    }
    const boost::shared_ptr<KTR::DPC::CameraAbstraction> abstraction = boost::make_shared<KTR::DPC::ZltCamera>(camera);
    return KTR::DPC::DpcAdapterManager::IsCompatible(abstraction)
               ? KTR::DPC::DpcAdapterManager::GetCompatibleDpcAdapter(abstraction)
               : nullptr;
}

// Null when the camera has no set of this name.
CorrectionSetPtr FindSet(DpcAdapter& adapter, const std::string& name)
{
    const std::vector<CorrectionSetPtr> sets = adapter.GetAvailableCorrectionSets();
    const auto found =
        std::find_if(sets.begin(), sets.end(), [&](const CorrectionSetPtr& set) { return set->getName() == name; });
    return found != sets.end() ? *found : nullptr;
}

struct SetState
{
    CorrectionSetPtr set;
    bool writable;
    bool available;
    bool readable;
    bool enabled;
    bool canBeRestored;
};

SetState Ask(DpcAdapter& adapter, const CorrectionSetPtr& set)
{
    return {set,
            adapter.IsCorrectionSetWritable(set),
            adapter.IsCorrectionSetAvailable(set),
            adapter.IsCorrectionSetReadable(set),
            adapter.IsCorrectionSetEnabled(set),
            adapter.IsRestoreFactorySettingsAvailable(set)};
}

std::unique_ptr<CorrectionSetData> Describe(const SetState& state)
{
    auto data = std::make_unique<CorrectionSetData>(state.set, state.writable, state.available, nullptr);
    data->SetIsEmpty(!state.readable);
    data->SetIfDpcOn(state.enabled);
    data->SetIfRestoreDefSetAvailable(state.canBeRestored);
    return data;
}

// Calls into the camera last as long as it takes; beside them the GUI thread goes on with its events, so that what
// tells the user to wait keeps moving. The work touches the camera alone. Its exception comes back here.
void RunBesideEvents(const std::function<void()>& work)
{
    if (QCoreApplication::instance() == nullptr || QThread::currentThread() != QCoreApplication::instance()->thread())
    {
        work();
        return;
    }
    std::exception_ptr failure;
    const std::unique_ptr<QThread> worker(QThread::create(
        [&]
        {
            try
            {
                work();
            }
            catch (...)
            {
                failure = std::current_exception();
            }
        }));
    QEventLoop events;
    QObject::connect(worker.get(), &QThread::finished, &events, &QEventLoop::quit);
    worker->start();
    events.exec();
    worker->wait();
    if (failure)
    {
        std::rethrow_exception(failure);
    }
}

} // namespace

void AsynchronousCameraController::TellFailure(const std::function<void()>& work)
{
    try
    {
        work();
    }
    catch (const Exception& failure)
    {
        AnnounceMessage(Text(failure));
    }
}

// The stream stops and starts again within the operation, so that no other thread meets the camera in between. Does
// nothing without a selected camera.
void AsynchronousCameraController::WorkOnSet(const std::string& name, const SetWork& work)
{
    const Operation operation(*this);
    const CameraStreamStateHolder holder(*this);
    const ZltApi::CameraPtr camera = m_cameras.empty() ? nullptr : ListedCamera();
    if (!camera)
    {
        return;
    }
    QStringList messages;
    const auto run = [&]
    {
        const boost::shared_ptr<DpcAdapter> adapter = MakeAdapter(camera);
        if (!adapter)
        {
            messages << tr("Camera or DPC is not supported");
            return;
        }
        const CorrectionSetPtr set = FindSet(*adapter, name);
        if (!set)
        {
            throw Exception("The camera has no correction set \"" + name + "\".", true);
        }
        work(*adapter, set, messages);
    };
    TellFailure(
        [&]
        {
            const auto tell = qScopeGuard(
                [&]
                {
                    for (const QString& message : qAsConst(messages))
                    {
                        AnnounceMessage(message);
                    }
                });
            RunBesideEvents(run);
        });
}

void AsynchronousCameraController::GetCorrectionSets(QList<CorrectionSetData*>* list)
{
    QCoreApplication::processEvents();
    if (list == nullptr)
    {
        return;
    }
    const Operation operation(*this);
    const CameraStreamStateHolder holder(*this);
    m_api.GetCameraList(); // lets the API look at its cameras anew; the list here follows events alone
    if (!CheckIfCamerasAreOnTheList())
    {
        return;
    }
    TellFailure(
        [&]
        {
            const boost::shared_ptr<DpcAdapter> adapter = MakeAdapter(m_currentCamera);
            if (!adapter)
            {
                return;
            }
            m_sensorWidth = static_cast<int>(adapter->GetSensorWidth());
            m_sensorHeight = static_cast<int>(adapter->GetSensorHeight());
            std::vector<SetState> states;
            const auto append = qScopeGuard(
                [&]
                {
                    for (const SetState& state : states)
                    {
                        list->append(Describe(state).release());
                    }
                });
            RunBesideEvents(
                [&]
                {
                    for (const CorrectionSetPtr& set : adapter->GetAvailableCorrectionSetsWithMetadata())
                    {
                        states.push_back(Ask(*adapter, set));
                    }
                });
        });
}

SensorDefectList AsynchronousCameraController::ReadCorrectionSet(const QString& name, TreeModel* /*unused*/)
{
    QCoreApplication::processEvents();
    SensorDefectList stored;
    WorkOnSet(name.toStdString(), [&](DpcAdapter& adapter, const CorrectionSetPtr& set, QStringList&)
              { stored = adapter.ReadCorrectionSet(set); });
    return stored;
}

SensorDefectList AsynchronousCameraController::WriteCorrectionSet(const std::string& name,
                                                                  const std::map<std::string, double>& metadata,
                                                                  TreeModel* model)
{
    QCoreApplication::processEvents();
    SensorDefectList stored;
    const QVector<DefectInfo> list = model->getDefectList();
    const auto upload = [&](DpcAdapter& adapter, const CorrectionSetPtr& set, QStringList& messages)
    {
        for (const auto& [key, value] : metadata)
        {
            set->setMetadata(key, value);
        }
        if (set->getName() == "Factory" || set->getName() == "Preset")
        {
            messages << tr("Factory set can't be overwritten!");
            return;
        }
        if (!adapter.IsCorrectionSetWritable(set))
        {
            messages << tr("Correction set is not writable");
            return;
        }
        const SensorDefectList defects = SetNewSensorDefects(adapter.GetAvailableDefectTypes(), list);
        if (!adapter.IsSpaceSufficient(set, defects) || !adapter.IsCorrectionSetValid(set, defects))
        {
            messages << tr("Not enough memory in the camera");
            return;
        }
        // A write that fails is told and not the end: what the camera holds then is still to be read.
        try
        {
            adapter.WriteCorrectionSet(set, defects);
        }
        catch (const Exception& failure)
        {
            messages << tr("Error with saving pixels\n") + Text(failure);
        }
        stored = adapter.ReadCorrectionSet(set);
    };
    WorkOnSet(name, upload);
    return stored;
}

void AsynchronousCameraController::SetDpcOnOff(const QString& name)
{
    QCoreApplication::processEvents();
    WorkOnSet(name.toStdString(), [](DpcAdapter& adapter, const CorrectionSetPtr& set, QStringList&)
              { adapter.SetCorrectionSetEnabled(set, !adapter.IsCorrectionSetEnabled(set)); });
}

void AsynchronousCameraController::RestoreSetToDefault(const QString& name)
{
    if (CheckIfCamerasAreOnTheList())
    {
        WorkOnSet(name.toStdString(), [](DpcAdapter& adapter, const CorrectionSetPtr& set, QStringList&)
                  { adapter.RestoreFactorySettings(set); });
    }
}

// What follows runs under the stream, on a camera pointer of its own.

std::string AsynchronousCameraController::GetDefaultCorrectionSet()
{
    try
    {
        const boost::shared_ptr<DpcAdapter> adapter = MakeAdapter(CurrentCamera());
        const CorrectionSetPtr set = adapter ? adapter->GetDefaultCorrectionSet() : nullptr;
        return set ? set->getName() : std::string();
    }
    catch (const Exception&)
    {
        return {};
    }
}

void AsynchronousCameraController::SetDefaultCorrectionSet(const std::string& name)
{
    const boost::shared_ptr<DpcAdapter> adapter = MakeAdapter(CurrentCamera());
    const CorrectionSetPtr set = adapter ? FindSet(*adapter, name) : nullptr;
    if (!set)
    {
        throw Exception("Couldn't set Correction Set \"" + name + "\" as default!", true);
    }
    adapter->SetDefaultCorrectionSet(set);
}

void AsynchronousCameraController::GetAvaiableDefects(std::vector<int>& availableDefects)
{
    try
    {
        if (const boost::shared_ptr<DpcAdapter> adapter = MakeAdapter(CurrentCamera()))
        {
            for (const KTR::DPC::SensorDefectType type : adapter->GetAvailableDefectTypes())
            {
                availableDefects.push_back(DefectUiType::FromSensorDefectType(type));
            }
        }
    }
    catch (const Exception& failure)
    {
        Q_EMIT ErrorSignal(Text(failure));
    }
}
