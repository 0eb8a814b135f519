// The panel at the right: the camera's correction sets, and the pixel list with its commands.
#pragma once

#include <QList>
#include <QWidget>

#include <memory>
#include <string>
#include <vector>

class CorrectionListWidget;
class CorrectionSetData;
class QPushButton;
class QTreeView;

namespace Ui
{
class RightPanel;
}

// Three sets matter: the selected one is what the pixel list shows, the active one is in force in the camera, the
// default one is what the camera loads at its start. The panel turns clicks into signals; it does not know the camera.
// GUI thread.
class RightPanel : public QWidget
{
    Q_OBJECT

public:
    // Takes the view of the pixel list in; its model should be set.
    explicit RightPanel(QTreeView* pixelListView, QWidget* parent = nullptr);
    ~RightPanel() override;

    // All sets of the camera. Whoever fills the list hands the sets over: the panel deletes them.
    QList<CorrectionSetData*>* GetCorrectionSetList() { return &m_correctionSets; }
    // Shows the filled list and selects the active set, if there is one.
    void SetCorrectionSets();
    // Deletes all sets and forgets which one was selected, active and default.
    void ResetCorrectionSetList();

    // The name of the selected set; Lorvane::NoSetName without one.
    QString GetCurrentRow() const { return m_selectedSet; }
    // The selection stays as it is.
    void SelectPreviousSet();
    // What the camera says; an empty name: this family has no default set.
    void SetDefaultCorrectionSet(const std::string& name);
    // Takes over the metadata, or the emptiness, with which a set was written; without metadata nothing happens.
    void UpdateSetItemMetadata(const QString& name, const CorrectionSetData* written);
    // Switches correction off in both lists and asks for it in the camera; always true.
    bool DeactivateCurrentDPC();
    // Shows in both lists which set is active and which is the default.
    void UpdateButtons();
    void SetCameraInfo(const QString& name, const std::vector<int>& availableDefects);

    QPushButton* CopyPixelListButton() const;
    QPushButton* PastePixelListButton() const;
    QPushButton* ExportToFileButton() const;
    QPushButton* UploadToCameraButton() const;
    QPushButton* AddPixelButton() const;
    QPushButton* ClearListButton() const;
    QPushButton* RestoreDefaultSetButton() const;
    QPushButton* AutomaticDetectionButton() const;

public Q_SLOTS:
    void OnAddPixelButtonClick();
    // These four answer a CorrectionListWidget, which must be the sender.
    void OnDpcOnOffButtonClick(int index);
    void OnDefaultSetButtonClick(int index);
    // Shows name and permitted commands of a set without selecting it.
    void OnCorrectionSetItemClick(int index);
    void OnComboBoxActivated(int index);
    void OnNumberOfDefectsUpdated(int numberOfDefects);

Q_SIGNALS:
    void SignalToAddPixels();
    // The name of the set to be read; empty for a set that is empty.
    void ReadDefectsSignal(QString name);
    void ChangeDpcStateSignal(QString name);
    void EnablePixelEditingSignal(bool value);
    void SetDefaultCorrectionSetSignal(std::string name);

protected:
    void changeEvent(QEvent* event) override;

private:
    CorrectionListWidget* SendingList() const;
    CorrectionListWidget* ListOf(const CorrectionSetData& set) const;
    CorrectionSetData* FindSet(const QString& name) const;
    void ConnectList(const CorrectionListWidget* list);
    void ShowSet(const CorrectionSetData& set);
    void ShowNames();
    void ShowNumberOfDefects();
    void SetStrings();

    std::unique_ptr<Ui::RightPanel> m_ui;
    QList<CorrectionSetData*> m_correctionSets; // owned
    QString m_selectedSet;
    QString m_defaultSet;
    QString m_activeSet;
    // What the labels tell; empty: there is none. They differ from the names while a change is under way.
    QString m_shownDefaultSet;
    QString m_shownActiveSet;
    int m_numberOfDefects = -1; // -1: not known yet
};
