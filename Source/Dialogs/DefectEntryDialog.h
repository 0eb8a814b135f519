// The form in which a defect is entered by its numbers.
#pragma once

#include "EntryDialog.h"

#include <memory>

class QLineEdit;

namespace Ui
{
class DefectEntryForm;
}

// Position and size in zero-based sensor coordinates.
class DefectEntryDialog : public EntryDialog
{
    Q_OBJECT

public:
    ~DefectEntryDialog() override;

protected:
    struct Values
    {
        int x;
        int y;
        int width;
        int height;
    };

    explicit DefectEntryDialog(QWidget* parent);

    void changeEvent(QEvent* event) override;

    // The name of a DefectUiType in the combo box; empty for an unknown one.
    static QString KindText(int kind);

    // What stands in the fields; 0 for a field without a number.
    Values EnteredValues() const;
    // Lets a field take numbers from smallest to largest.
    void Limit(QLineEdit* field, int smallest, int largest);
    // Permits the confirmation, or refuses it with the warning.
    void ShowInScope(bool inScope, const QString& warning);

    // Whether so many pixels from the first one lie below the limit; exact also for numbers near the end of an int.
    static bool EndsWithin(int begin, int length, int limit);

    std::unique_ptr<Ui::DefectEntryForm> m_ui;
};
