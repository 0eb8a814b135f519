// The panel at the right: the camera's correction sets, and the pixel list with its commands.
#include "RightPanel.h"

#include "CommandIcon.h"
#include "CorrectionListWidget.h"
#include "CorrectionSetData.h"
#include "CorrectionSetNames.h"
#include "ui_RightPanel.h"

#include <QAbstractItemModel>
#include <QComboBox>
#include <QEvent>
#include <QHeaderView>
#include <QTreeView>

#include <algorithm>
#include <utility>

namespace
{

constexpr int SeparatorColumn = 2; // of the pixel list

// Sets of these names are left out where the camera does not have them.
bool IsFactorySet(const CorrectionSetData& set)
{
    const std::string name = set.getName();
    return name == "Factory" || name == "Preset";
}

// The tool tip of a command begins with the command's name in bold, which also is what a screen reader says.
void Describe(QPushButton* button, const QString& toolTip)
{
    const QString begin = QStringLiteral("<b>");
    const int end = toolTip.indexOf(QStringLiteral("</b>"));
    button->setToolTip(toolTip);
    button->setAccessibleName(toolTip.mid(begin.size(), end - begin.size()));
}

void Dress(QPushButton* button, const char* icon)
{
    SetCommandIcon(button, QLatin1String(icon), {18, 18});
}

} // namespace

RightPanel::RightPanel(QTreeView* pixelListView, QWidget* parent)
    : QWidget(parent),
      m_ui(std::make_unique<Ui::RightPanel>()),
      m_selectedSet(QLatin1String(Lorvane::NoSetName)),
      m_activeSet(QLatin1String(Lorvane::ACTIVE_SET_NONE_TEXT))
{
    m_ui->setupUi(this);
    setAttribute(Qt::WA_StyledBackground);
    Dress(m_ui->restoreDefaultSetButton, "restore");
    Dress(m_ui->addPixelButton, "add");
    Dress(m_ui->clearListButton, "clear");
    Dress(m_ui->copyPixelListButton, "copy");
    Dress(m_ui->pastePixelListButton, "paste");
    Dress(m_ui->exportToFileButton, "export");
    Dress(m_ui->automaticDetectionButton, "automatic-detection");
    Dress(m_ui->uploadToCameraButton, "upload");

    pixelListView->setUniformRowHeights(true);
    pixelListView->setIndentation(16);
    // The separator takes the room that is left, so that the icons of all rows stand at the right edge.
    pixelListView->header()->setStretchLastSection(false);
    if (pixelListView->header()->count() > SeparatorColumn)
    {
        pixelListView->header()->setSectionResizeMode(SeparatorColumn, QHeaderView::Stretch);
    }
    m_ui->pixelListLayout->addWidget(pixelListView);
    if (const QAbstractItemModel* model = pixelListView->model())
    {
        // A list that is filled or emptied as a whole announces no number.
        connect(model, &QAbstractItemModel::modelReset, this,
                [this, model] { OnNumberOfDefectsUpdated(model->rowCount()); });
    }

    ConnectList(m_ui->presetWidget);
    ConnectList(m_ui->userWidget);
    connect(m_ui->addPixelButton, &QPushButton::clicked, this, &RightPanel::OnAddPixelButtonClick);
    SetStrings();
}

RightPanel::~RightPanel()
{
    qDeleteAll(m_correctionSets);
}

void RightPanel::SetCorrectionSets()
{
    CorrectionListWidget* activeList = nullptr;
    for (CorrectionSetData* set : qAsConst(m_correctionSets))
    {
        if (!set->IsAvailable() && IsFactorySet(*set))
        {
            continue;
        }
        CorrectionListWidget* list = ListOf(*set);
        list->Add(set);
        if (set->GetIfDpcOn())
        {
            m_activeSet = QString::fromStdString(set->getName());
            activeList = list;
            Q_EMIT EnablePixelEditingSignal(set->IsWritable());
        }
    }
    for (CorrectionListWidget* list : {m_ui->presetWidget, m_ui->userWidget})
    {
        if (const CorrectionSetData* current = list->GetCurrentSet())
        {
            list->SetDpcEnableButton(current->GetIfDpcOn());
        }
        else
        {
            list->EnableButtons(false);
        }
    }
    if (activeList != nullptr)
    {
        const int index = activeList->findSet(m_activeSet);
        QComboBox* box = activeList->GetComboBox();
        m_shownActiveSet = m_activeSet;
        ShowNames();
        box->setCurrentIndex(index);
        Q_EMIT box->activated(index);
    }
}

void RightPanel::ResetCorrectionSetList()
{
    m_ui->presetWidget->Clear();
    m_ui->userWidget->Clear();
    qDeleteAll(m_correctionSets);
    m_correctionSets.clear();

    m_selectedSet = QLatin1String(Lorvane::NoSetName);
    m_activeSet = QLatin1String(Lorvane::ACTIVE_SET_NONE_TEXT);
    m_defaultSet.clear();
    m_shownDefaultSet.clear();
    m_shownActiveSet.clear();
    m_ui->labelPixelListCorrectionSet->setText(m_selectedSet);
    ShowNames();
    UpdateButtons();
}

void RightPanel::SelectPreviousSet() {}

void RightPanel::SetDefaultCorrectionSet(const std::string& name)
{
    m_defaultSet = QString::fromStdString(name);
    if (m_defaultSet.isEmpty())
    {
        m_ui->presetWidget->EnableDefaultSetButton(false);
        m_ui->userWidget->EnableDefaultSetButton(false);
        return;
    }
    m_shownDefaultSet = m_defaultSet;
    ShowNames();
    const CorrectionSetData* set = FindSet(m_defaultSet);
    for (const CorrectionListWidget* list : {m_ui->presetWidget, m_ui->userWidget})
    {
        list->GetDefaultSetButton()->setCheckable(true);
        list->GetDefaultSetButton()->setChecked(set != nullptr && ListOf(*set) == list);
    }
}

void RightPanel::UpdateSetItemMetadata(const QString& name, const CorrectionSetData* written)
{
    CorrectionSetData* set = FindSet(name);
    if (set == nullptr || written == nullptr || written->getMetadataSize() == 0)
    {
        return;
    }
    if (written->IsEmpty())
    {
        set->SetIsEmpty(true);
        set->clearAllMetadata();
    }
    else
    {
        for (const auto& [key, value] : written->getAllMetadata())
        {
            set->setMetadata(key, value);
        }
        set->SetIsEmpty(false);
    }
    ListOf(*set)->UpdateSet(name);
}

bool RightPanel::DeactivateCurrentDPC()
{
    for (CorrectionListWidget* list : {m_ui->presetWidget, m_ui->userWidget})
    {
        list->SetDpcEnableButton(false);
        if (CorrectionSetData* set = list->GetCurrentSet())
        {
            set->SetIfDpcOn(false);
        }
    }
    m_shownActiveSet.clear();
    ShowNames();
    // The answer toggles the set: it is named once, so that a second call does not switch it on again.
    Q_EMIT ChangeDpcStateSignal(std::exchange(m_activeSet, QLatin1String(Lorvane::ACTIVE_SET_NONE_TEXT)));
    return true;
}

void RightPanel::UpdateButtons()
{
    const bool isPreset = m_ui->presetWidget->findSet(m_selectedSet) >= 0;
    CorrectionListWidget* current = isPreset ? m_ui->presetWidget : m_ui->userWidget;
    CorrectionListWidget* other = isPreset ? m_ui->userWidget : m_ui->presetWidget;
    current->SetDpcEnableButton(m_selectedSet == m_activeSet);
    current->GetDefaultSetButton()->setChecked(m_selectedSet == m_defaultSet);

    const CorrectionSetData* otherSet = other->GetCurrentSet();
    const QString otherName = otherSet == nullptr ? QString() : QString::fromStdString(otherSet->getName());
    other->SetDpcEnableButton(otherSet != nullptr && m_activeSet == otherName);
    other->GetDefaultSetButton()->setChecked(otherSet != nullptr && m_defaultSet == otherName);
}

void RightPanel::SetCameraInfo(const QString& name, const std::vector<int>&)
{
    m_ui->cameraNameLabel->setText(name);
}

QPushButton* RightPanel::CopyPixelListButton() const
{
    return m_ui->copyPixelListButton;
}

QPushButton* RightPanel::PastePixelListButton() const
{
    return m_ui->pastePixelListButton;
}

QPushButton* RightPanel::ExportToFileButton() const
{
    return m_ui->exportToFileButton;
}

QPushButton* RightPanel::UploadToCameraButton() const
{
    return m_ui->uploadToCameraButton;
}

QPushButton* RightPanel::AddPixelButton() const
{
    return m_ui->addPixelButton;
}

QPushButton* RightPanel::ClearListButton() const
{
    return m_ui->clearListButton;
}

QPushButton* RightPanel::RestoreDefaultSetButton() const
{
    return m_ui->restoreDefaultSetButton;
}

QPushButton* RightPanel::AutomaticDetectionButton() const
{
    return m_ui->automaticDetectionButton;
}

void RightPanel::OnAddPixelButtonClick()
{
    Q_EMIT SignalToAddPixels();
}

// The receivers of the signals below may run an event loop in which the camera, and the sets with it, disappears: no
// set is touched after a signal.
void RightPanel::OnDpcOnOffButtonClick(int index)
{
    const CorrectionListWidget* list = SendingList();
    const CorrectionSetData* set = list == nullptr ? nullptr : list->GetSet(index);
    if (set == nullptr)
    {
        return;
    }
    const bool wasOn = list->isDpcEnabled();
    m_ui->presetWidget->SetDpcEnableButton(false);
    m_ui->userWidget->SetDpcEnableButton(false);
    m_selectedSet = QString::fromStdString(set->getName());
    m_activeSet = wasOn ? QString(QLatin1String(Lorvane::ACTIVE_SET_NONE_TEXT)) : m_selectedSet;
    m_shownActiveSet = wasOn ? QString() : m_selectedSet;
    ShowNames();
    UpdateButtons();
    Q_EMIT ChangeDpcStateSignal(m_selectedSet);
}

void RightPanel::OnDefaultSetButtonClick(int index)
{
    const CorrectionListWidget* list = SendingList();
    const CorrectionSetData* set = list == nullptr ? nullptr : list->GetSet(index);
    if (set == nullptr)
    {
        return;
    }
    const QString name = QString::fromStdString(set->getName());
    if (!m_defaultSet.isEmpty())
    {
        list->GetDefaultSetButton()->setChecked(true);
    }
    if (name != m_defaultSet)
    {
        m_defaultSet = name;
        m_selectedSet = name;
        UpdateButtons();
        Q_EMIT SetDefaultCorrectionSetSignal(name.toStdString());
    }
}

void RightPanel::OnCorrectionSetItemClick(int index)
{
    const CorrectionListWidget* list = SendingList();
    if (const CorrectionSetData* set = list == nullptr ? nullptr : list->GetSet(index))
    {
        ShowSet(*set);
        Q_EMIT EnablePixelEditingSignal(set->IsWritable());
    }
}

void RightPanel::OnComboBoxActivated(int index)
{
    const CorrectionListWidget* list = SendingList();
    const CorrectionSetData* set = list == nullptr ? nullptr : list->GetSet(index);
    if (set == nullptr)
    {
        return;
    }
    ShowSet(*set);
    m_selectedSet = QString::fromStdString(set->getName());
    const QString toRead = set->IsEmpty() ? QString() : m_selectedSet;
    UpdateButtons();
    Q_EMIT EnablePixelEditingSignal(set->IsWritable());
    Q_EMIT ReadDefectsSignal(toRead);
}

void RightPanel::OnNumberOfDefectsUpdated(int numberOfDefects)
{
    m_numberOfDefects = numberOfDefects;
    ShowNumberOfDefects();
}

void RightPanel::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
    {
        m_ui->retranslateUi(this);
        SetStrings();
    }
    QWidget::changeEvent(event);
}

CorrectionListWidget* RightPanel::SendingList() const
{
    return qobject_cast<CorrectionListWidget*>(sender());
}

CorrectionListWidget* RightPanel::ListOf(const CorrectionSetData& set) const
{
    return set.IsWritable() ? m_ui->userWidget : m_ui->presetWidget;
}

CorrectionSetData* RightPanel::FindSet(const QString& name) const
{
    const auto found =
        std::find_if(m_correctionSets.begin(), m_correctionSets.end(),
                     [name = name.toStdString()](const CorrectionSetData* set) { return set->getName() == name; });
    return found == m_correctionSets.end() ? nullptr : *found;
}

void RightPanel::ConnectList(const CorrectionListWidget* list)
{
    connect(list, &CorrectionListWidget::comboBoxClicked, this, &RightPanel::OnComboBoxActivated);
    connect(list, &CorrectionListWidget::defaultButtonClicked, this, &RightPanel::OnDefaultSetButtonClick);
    connect(list, &CorrectionListWidget::dpcEnableClicked, this, &RightPanel::OnDpcOnOffButtonClick);
}

void RightPanel::ShowSet(const CorrectionSetData& set)
{
    m_ui->labelPixelListCorrectionSet->setText(QString::fromStdString(set.getName()));
    m_ui->restoreDefaultSetButton->setEnabled(set.GetIfRestoreDefSetAvailable());
    for (QPushButton* button : {m_ui->uploadToCameraButton, m_ui->pastePixelListButton, m_ui->addPixelButton,
                                m_ui->clearListButton, m_ui->automaticDetectionButton})
    {
        button->setEnabled(set.IsWritable());
    }
}

void RightPanel::ShowNames()
{
    m_ui->activeSetValueLabel->setText(m_shownActiveSet.isEmpty() ? tr("None") : m_shownActiveSet);
    m_ui->defaultSetValueLabel->setText(m_shownDefaultSet.isEmpty() ? tr("Not available") : m_shownDefaultSet);
}

void RightPanel::ShowNumberOfDefects()
{
    if (m_numberOfDefects < 0)
    {
        m_ui->labelNumberOfDefects->setText(tr("# defects"));
        return;
    }
    const QString ending = m_numberOfDefects == 1 ? QString() : tr("s", "ending of more than one defect");
    m_ui->labelNumberOfDefects->setText(tr("%1 defect%2").arg(QString::number(m_numberOfDefects), ending));
}

void RightPanel::SetStrings()
{
    Describe(m_ui->copyPixelListButton,
             tr("<b>Copy pixel list</b> <br/> <span style='color:gray;'>Copy the current pixel list</span>"));
    Describe(m_ui->pastePixelListButton,
             tr("<b>Paste pixel list</b> <br/> <span style='color:gray;'>Paste the copied pixel list</span>"));
    Describe(m_ui->addPixelButton, tr("<b>Add pixels</b> <br/> <span style='color:gray;'>Add pixels</span>"));
    Describe(m_ui->clearListButton,
             tr("<b>Clear list</b> <br/> <span style='color:gray;'>Delete all list items</span>"));
    Describe(m_ui->exportToFileButton,
             tr("<b>Export</b> <br/> <span style='color:gray;'>Export current pixel list to an .xml file</span>"));
    Describe(m_ui->uploadToCameraButton,
             tr("<b>Upload</b> <br/> <span style='color:gray;'>Upload current pixel list to the camera</span>"));
    Describe(m_ui->restoreDefaultSetButton,
             tr("<b>Restore default set</b> <br/> <span style='color:gray;'>Restore default set</span>"));
    m_ui->presetWidget->SetTitle(tr("Preset"));
    m_ui->userWidget->SetTitle(tr("User"));
    ShowNames();
    ShowNumberOfDefects();
}
