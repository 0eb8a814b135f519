// The form in which a defect is entered by its numbers.
#include "DefectEntryDialog.h"

#include "DefectUiType.h"
#include "ui_DefectEntryForm.h"

#include <QEvent>
#include <QIntValidator>
#include <QLocale>
#include <QStyledItemDelegate>

#include <cstdint>

DefectEntryDialog::DefectEntryDialog(QWidget* parent)
    : EntryDialog(parent),
      m_ui(std::make_unique<Ui::DefectEntryForm>())
{
    m_ui->setupUi(this);
    // The default delegate of combo boxes knows nothing of style sheets.
    m_ui->comboBox->setItemDelegate(new QStyledItemDelegate(m_ui->comboBox));
}

DefectEntryDialog::~DefectEntryDialog() = default;

void DefectEntryDialog::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
    {
        m_ui->retranslateUi(this);
    }
    EntryDialog::changeEvent(event);
}

QString DefectEntryDialog::KindText(int kind)
{
    switch (kind)
    {
    case DefectUiType::SinglePixel:
        return tr("Single Pixel Defect");
    case DefectUiType::PixelColumn:
        return tr("Pixel Column Defect");
    case DefectUiType::PixelRow:
        return tr("Pixel Row Defect");
    case DefectUiType::Cluster:
        return tr("Cluster Defect");
    case DefectUiType::Column:
        return tr("Column Defect");
    case DefectUiType::Row:
        return tr("Row Defect");
    default:
        return {};
    }
}

DefectEntryDialog::Values DefectEntryDialog::EnteredValues() const
{
    return {m_ui->lineEditX->text().toInt(), m_ui->lineEditY->text().toInt(), m_ui->lineEditWidth->text().toInt(),
            m_ui->lineEditHeight->text().toInt()};
}

void DefectEntryDialog::Limit(QLineEdit* field, int smallest, int largest)
{
    auto* validator = new QIntValidator(smallest, largest, field);
    // "1.000" and "1,000" would pass for numbers, and then could not be read.
    QLocale digitsOnly = QLocale::c();
    digitsOnly.setNumberOptions(QLocale::RejectGroupSeparator);
    validator->setLocale(digitsOnly);
    field->setValidator(validator);
}

void DefectEntryDialog::ShowInScope(bool inScope, const QString& warning)
{
    m_ui->outOfScopeLabel->setText(inScope ? QString() : warning);
    m_ui->confirmButton->setEnabled(inScope);
}

bool DefectEntryDialog::EndsWithin(int begin, int length, int limit)
{
    return std::int64_t{begin} + length <= limit;
}
