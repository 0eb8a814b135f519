// One list of correction sets: a combo box with the switch for the correction and the button for the default set.
#pragma once

#include <QList>
#include <QWidget>

class CorrectionSetData;
class QComboBox;
class QLabel;
class QPushButton;

// Turns clicks into signals and changes nothing in the camera. GUI thread.
class CorrectionListWidget : public QWidget
{
    Q_OBJECT

public:
    explicit CorrectionListWidget(QWidget* parent = nullptr);

    void SetTitle(const QString& title);

    // Appends the set, which must stay alive until Clear. The buttons follow the first set of the list.
    void Add(CorrectionSetData* set);
    void Clear();
    // In the order of the combo box.
    const QList<CorrectionSetData*>& GetCorrectionSets() const { return m_sets; }
    // The set that the combo box shows; null without one.
    CorrectionSetData* GetCurrentSet() const;
    // Null outside of the list.
    CorrectionSetData* GetSet(int index) const;
    // Index of the set of this name, -1 without one.
    int findSet(const QString& name) const;
    // Describes the set of this name anew.
    void UpdateSet(const QString& name);

    // Both buttons with the tool tips that say why.
    void EnableButtons(bool enable);
    void EnableDefaultSetButton(bool enable);

    // Shows whether the correction is in force with the current set.
    void SetDpcEnableButton(bool on);
    bool isDpcEnabled() const { return m_dpcEnabled; }

    QPushButton* GetDefaultSetButton() const { return m_defaultSetButton; }
    QPushButton* GetDpcEnableButton() const { return m_dpcEnableButton; }
    QComboBox* GetComboBox() const { return m_comboBox; }

    // The line of the combo box: the name, "0. [Empty Set]" or "0. Gain 1.5, 20.0°C, 10000µS". A set that is not empty
    // and holds some of the three values but not all has an empty line.
    static QString CreateSetDescription(int index, const CorrectionSetData* set);

Q_SIGNALS:
    // Each with the index of the combo box.
    void comboBoxClicked(int index);
    void defaultButtonClicked(int index);
    void dpcEnableClicked(int index);

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void OnComboBoxActivated(int index);
    void SetStrings();
    void SetToolTips();
    void FitPopup();

    QLabel* m_titleLabel;
    QComboBox* m_comboBox;
    QPushButton* m_dpcEnableButton;
    QPushButton* m_defaultSetButton;
    QList<CorrectionSetData*> m_sets;
    bool m_dpcEnabled = false;
};
