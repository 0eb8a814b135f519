// The dialog that asks for the conditions under which a pixel list is stored in the camera.
#pragma once

#include "EntryDialog.h"

#include <QList>

#include <memory>

class CorrectionSetData;

namespace Ui
{
class FileUploadDialog;
}

// Keeps a camera from holding two sets of equal metadata: metadata of another set means that set is to be replaced.
class FileUploadDialog : public EntryDialog
{
    Q_OBJECT

public:
    // The set to be written, whose metadata is changed as the user types, and all sets of the camera. Both must outlive
    // the dialog.
    FileUploadDialog(CorrectionSetData* set, QList<CorrectionSetData*>* sets, QWidget* parent);
    ~FileUploadDialog() override;

    // The set's own name, or that of another set with the same metadata.
    QString getResultSetName() const { return m_resultSetName; }
    // False when another set has the same metadata.
    bool isNewSet() const { return m_newSet; }

public Q_SLOTS:
    void OnMetadataChange();

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void FillFields();
    void ShowDuplicate();
    void FitHeight();
    void SetStrings() override;

    std::unique_ptr<Ui::FileUploadDialog> m_ui;
    CorrectionSetData* m_set;
    QList<CorrectionSetData*>* m_sets;
    QString m_resultSetName;
    QString m_warning; // with places for the other set's name and this set's name
    bool m_newSet = true;
};
