// The window's correction sets: reading, uploading, restoring, switching, and the default set.
#include "AsynchronousCameraController.h"
#include "ConfirmDialog.h"
#include "CorrectionSetData.h"
#include "CorrectionSetMetadata.h"
#include "CorrectionSetNames.h"
#include "Exception.h"
#include "FileUploadDialog.h"
#include "LoaderDialog.h"
#include "MainWindow.h"
#include "MessageDialog.h"
#include "ModalExecution.h"
#include "RightPanel.h"
#include "TreeModel.h"

#include <algorithm>
#include <array>
#include <utility>

namespace
{

using namespace KTR::DPC::TamorinPro;

// Families whose cameras use a new set at once.
constexpr std::array<const char*, 2> FamiliesWithoutRestart = {"rivo", "dreli"};

bool IsSetName(const QString& name)
{
    return !name.isEmpty() && name != QLatin1String(Lorvane::NoSetName);
}

// Copies of the panel's sets: the panel deletes its own when the camera goes, which can happen while a dialog is open.
class CopiedSets
{
public:
    explicit CopiedSets(const QList<CorrectionSetData*>& sets)
    {
        for (const CorrectionSetData* set : sets)
        {
            m_owned.push_back(set->Copy());
            m_sets.append(m_owned.back().get());
        }
    }
    QList<CorrectionSetData*>* List() { return &m_sets; }
    // Null when there is none of this name.
    CorrectionSetData* Find(const std::string& name) const
    {
        const auto found = std::find_if(m_sets.begin(), m_sets.end(),
                                        [&](const CorrectionSetData* set) { return set->getName() == name; });
        return found == m_sets.end() ? nullptr : *found;
    }

private:
    std::vector<std::unique_ptr<CorrectionSetData>> m_owned;
    QList<CorrectionSetData*> m_sets;
};

void SetIfMissing(CorrectionSetData& set, const std::string& key, double value)
{
    if (!set.getMetadata(key))
    {
        set.setMetadata(key, value);
    }
}

} // namespace

void MainWindow::SetCorrectionSet()
{
    if (m_correctionSetsLoaded || m_cameraIndex == -1)
    {
        return;
    }
    m_rightPanel->ResetCorrectionSetList();
    m_controller->GetCorrectionSets(m_rightPanel->GetCorrectionSetList());
    m_rightPanel->SetCorrectionSets();
    m_correctionSetsLoaded = true;
    m_rightPanel->SetDefaultCorrectionSet(m_controller->GetDefaultCorrectionSet());
}

void MainWindow::PassReadingDefectSignal(const QString& name)
{
    if (m_treeModel->hasUnsavedDefects() &&
        !ConfirmDialog::executeDialog(tr("Confirm"), tr("Are you sure? \nOverwrite current pixel list")))
    {
        m_rightPanel->SelectPreviousSet();
        return;
    }
    const bool opensLoader = !m_loaderDialog->isVisible();
    if (opensLoader)
    {
        m_loaderDialog->PushBackToList(tr("Reading defects from camera..."));
        ApplicationLoaderShow();
    }
    if (name.isEmpty())
    {
        m_treeModel->clear();
    }
    else
    {
        m_treeModel->setupModelData(m_controller->ReadCorrectionSet(name, m_treeModel), m_controller->getSensorWidth(),
                                    m_controller->getSensorHeight());
    }
    m_loaderDialog->DisplayNextStepInformation();
    if (opensLoader)
    {
        ApplicationLoaderClose();
    }
}

void MainWindow::UploadListToTheCamera()
{
    const QString selected = m_rightPanel->GetCurrentRow();
    if (!IsSetName(selected))
    {
        MessageDialog::ExecuteDialog(tr("Correction list info"), tr("Select a correction set"), tr("OK"), nullptr);
    }
    else
    {
        const bool hasMetadata = m_controller->IsTemperatureControlAvailable() && !m_treeModel->isEmpty();
        if (hasMetadata ? !UploadWithMetadata(selected.toStdString()) : !UploadPlain(selected))
        {
            return;
        }
        m_loaderDialog->DisplayNextStepInformation();
        ApplicationLoaderClose();
    }
    OfferRestart();
}

// False when the user does not want it, with no loader left behind.
bool MainWindow::UploadPlain(const QString& name)
{
    if (!ConfirmDialog::executeDialog(tr("Confirm"),
                                      tr("Are you sure? \n Overwrite current correction set '%1'").arg(name)))
    {
        m_loaderDialog->ClearInfoList();
        return false;
    }
    m_loaderDialog->PushBackToList(tr("Uploading to the camera..."));
    ApplicationLoaderShow();
    WriteAndShow(name.toStdString(), {});
    return true;
}

// Two sets of equal metadata cannot be: the user may choose other values, or have the other set emptied.
bool MainWindow::UploadWithMetadata(const std::string& name)
{
    CopiedSets sets(*m_rightPanel->GetCorrectionSetList());
    CorrectionSetData* const set = sets.Find(name);
    if (set == nullptr)
    {
        return false; // the camera has gone, and its sets with it
    }
    m_loaderDialog->PushBackToList(tr("Checking correction set..."));
    m_loaderDialog->PushBackToList(tr("Uploading to the camera..."));
    m_loaderDialog->PushBackToList(tr("Remove duplicates..."));
    SetIfMissing(*set, CORRECTION_SET_METADATA_GAIN, m_controller->GetCurrentGain());
    SetIfMissing(*set, CORRECTION_SET_METADATA_EXPOSURE, m_controller->GetCurrentExposure());
    SetIfMissing(*set, CORRECTION_SET_METADATA_TEMPERATURE, m_controller->GetCurrentTemperatureSetpointValue());
    set->SetIsEmpty(false);
    FileUploadDialog dialog(set, sets.List(), this);
    if (Lorvane::ExecuteModal(dialog) != QDialog::Accepted)
    {
        m_loaderDialog->ClearInfoList();
        return false;
    }
    ApplicationLoaderShow();
    m_loaderDialog->DisplayNextStepInformation();
    WriteAndShow(name, set->getAllMetadata());
    m_rightPanel->UpdateSetItemMetadata(QString::fromStdString(name), set);
    const QString duplicate = dialog.getResultSetName();
    if (duplicate != QString::fromStdString(name))
    {
        m_treeModel->clear();
        set->SetIsEmpty(true);
        WriteAndShow(duplicate.toStdString(), set->getAllMetadata());
        m_rightPanel->UpdateSetItemMetadata(duplicate, set);
    }
    m_loaderDialog->DisplayNextStepInformation();
    return true;
}

// The list then shows what the camera holds.
void MainWindow::WriteAndShow(const std::string& name, const std::map<std::string, double>& metadata)
{
    m_treeModel->setupModelData(m_controller->WriteCorrectionSet(name, metadata, m_treeModel), m_sensorWidth,
                                m_sensorHeight);
}

void MainWindow::OfferRestart()
{
    const QString family = m_controller->getCurrentCameraFamilyName().toLower();
    const bool isInForce = std::any_of(FamiliesWithoutRestart.begin(), FamiliesWithoutRestart.end(),
                                       [&](const char* name) { return family.startsWith(QLatin1String(name)); });
    if (!isInForce)
    {
        MessageDialog::ExecuteDialog(tr("Upload successful"),
                                     tr("Changes will only take effect after restarting the camera"), tr("Restart"),
                                     [this] { RestartCamera(); });
    }
}

void MainWindow::RestartCamera()
{
    try
    {
        m_controller->ResetCamera();
    }
    catch (const KTR::System::Exception& failure)
    {
        SetErrorMessage(QString::fromStdString(failure.ToString()));
    }
}

void MainWindow::PassChangingStateSignal(const QString& name)
{
    m_loaderDialog->PushBackToList(tr("Changing DPC state..."));
    ApplicationLoaderShow();
    if (name != QLatin1String(Lorvane::ACTIVE_SET_NONE_TEXT))
    {
        m_controller->SetDpcOnOff(name);
        m_loaderDialog->DisplayNextStepInformation();
    }
    ApplicationLoaderClose();
}

void MainWindow::PassRestoringCorrectionSet()
{
    if (!ConfirmDialog::executeDialog(tr("Confirm"), tr("Are you sure? \nReset current correction set to default ")))
    {
        return;
    }
    m_loaderDialog->PushBackToList(tr("Getting current row..."));
    m_loaderDialog->PushBackToList(tr("Restoring correction set..."));
    ApplicationLoaderShow();
    m_loaderDialog->DisplayNextStepInformation();
    const QString name = m_rightPanel->GetCurrentRow();
    if (IsSetName(name))
    {
        m_loaderDialog->DisplayNextStepInformation();
        m_controller->RestoreSetToDefault(name);
    }
    else
    {
        MessageDialog::ExecuteDialog(tr("Correction list info"), tr("Select a correction set"), tr("OK"), nullptr);
    }
    ApplicationLoaderClose();
}

void MainWindow::SetDefaultCorrectionSetSlot(const std::string& name)
{
    const std::string previous = m_controller->GetDefaultCorrectionSet();
    try
    {
        m_controller->SetDefaultCorrectionSet(name);
        m_rightPanel->SetDefaultCorrectionSet(name);
    }
    catch (const KTR::System::Exception& failure)
    {
        m_rightPanel->SetDefaultCorrectionSet(previous);
        SetErrorMessage(QString::fromStdString(failure.GetMessage()));
    }
}
