// The dialog that asks for the conditions under which a pixel list is stored in the camera.
#include "FileUploadDialog.h"

#include "CorrectionSetData.h"
#include "CorrectionSetMetadata.h"
#include "ui_FileUploadDialog.h"

#include <QDoubleValidator>
#include <QEvent>
#include <QLocale>

#include <algorithm>

namespace Keys = KTR::DPC::TamorinPro;

namespace
{

// Where the camera has stored none.
constexpr double MissingGain = 0.0;
constexpr double MissingTemperature = 20.0; // degrees Celsius
constexpr double MissingExposure = 10000.0; // microseconds

QString Number(double value)
{
    return QString::number(value, 'g', 6);
}

// Numbers with a point, whatever the locale. What is left unfinished becomes the number as which it is stored.
class MetadataValidator : public QDoubleValidator
{
public:
    explicit MetadataValidator(QObject* parent) : QDoubleValidator(-Largest, Largest, 1000, parent)
    {
        QLocale pointOnly = QLocale::c();
        pointOnly.setNumberOptions(QLocale::RejectGroupSeparator);
        setLocale(pointOnly);
    }

    void fixup(QString& input) const override
    {
        bool isNumber = false;
        const double value = input.toDouble(&isNumber);
        input = Number(isNumber ? std::clamp(value, -Largest, Largest) : 0.0);
    }

private:
    static constexpr double Largest = 1e12;
};

} // namespace

FileUploadDialog::FileUploadDialog(CorrectionSetData* set, QList<CorrectionSetData*>* sets, QWidget* parent)
    : EntryDialog(parent),
      m_ui(std::make_unique<Ui::FileUploadDialog>()),
      m_set(set),
      m_sets(sets)
{
    m_ui->setupUi(this);
    FillFields();
    for (QLineEdit* field : {m_ui->editGain, m_ui->editExposure, m_ui->editTemperature})
    {
        field->setValidator(new MetadataValidator(field));
        connect(field, &QLineEdit::editingFinished, this, &FileUploadDialog::OnMetadataChange);
    }
    connect(m_ui->exitButton, &QPushButton::clicked, this, &QWidget::close);
    connect(m_ui->buttonOK, &QPushButton::clicked, this, &QDialog::accept);
    m_ui->editGain->setFocus();
    SetStrings();
    OnMetadataChange();
}

FileUploadDialog::~FileUploadDialog()
{
    // A field that loses the focus with its window would still call.
    for (const QLineEdit* field : {m_ui->editGain, m_ui->editExposure, m_ui->editTemperature})
    {
        field->disconnect(this);
    }
}

void FileUploadDialog::OnMetadataChange()
{
    m_set->setMetadata(Keys::CORRECTION_SET_METADATA_GAIN, m_ui->editGain->text().toDouble());
    m_set->setMetadata(Keys::CORRECTION_SET_METADATA_TEMPERATURE, m_ui->editTemperature->text().toDouble());
    m_set->setMetadata(Keys::CORRECTION_SET_METADATA_EXPOSURE, m_ui->editExposure->text().toDouble());
    m_newSet = true;
    const auto duplicate = std::find_if(m_sets->begin(), m_sets->end(),
                                        [this](const CorrectionSetData* other) { return m_set->IsEqual(*other); });
    const CorrectionSetData* result = m_set;
    if (duplicate != m_sets->end())
    {
        m_newSet = false;
        result = *duplicate;
    }
    m_resultSetName = QString::fromStdString(result->getName());
    ShowDuplicate();
    m_ui->buttonOK->setEnabled(true);
}

void FileUploadDialog::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
    {
        m_ui->retranslateUi(this);
    }
    EntryDialog::changeEvent(event);
}

void FileUploadDialog::showEvent(QShowEvent* event)
{
    EntryDialog::showEvent(event);
    FitHeight();
}

void FileUploadDialog::FillFields()
{
    m_ui->editGain->setText(Number(m_set->getMetadata(Keys::CORRECTION_SET_METADATA_GAIN).value_or(MissingGain)));
    m_ui->editTemperature->setText(
        Number(m_set->getMetadata(Keys::CORRECTION_SET_METADATA_TEMPERATURE).value_or(MissingTemperature)));
    m_ui->editExposure->setText(
        Number(m_set->getMetadata(Keys::CORRECTION_SET_METADATA_EXPOSURE).value_or(MissingExposure)));
}

void FileUploadDialog::ShowDuplicate()
{
    if (!m_newSet)
    {
        m_ui->labelWarning->setText(m_warning.arg(m_resultSetName, QString::fromStdString(m_set->getName())));
    }
    m_ui->labelWarning->setVisible(!m_newSet);
    if (isVisible())
    {
        FitHeight();
    }
}

// The warning takes the more lines, the narrower the dialog is: only the height follows it.
void FileUploadDialog::FitHeight()
{
    // From the inside outwards, so that no size comes from before.
    m_ui->contentLayout->activate();
    m_ui->frameLayout->activate();
    layout()->activate();
    const int height = layout()->hasHeightForWidth() ? layout()->totalHeightForWidth(minimumWidth())
                                                     : layout()->totalSizeHint().height();
    resize(minimumWidth(), height);
}

void FileUploadDialog::SetStrings()
{
    m_ui->headerLabel->setText(tr("Upload To Camera : %1").arg(QString::fromStdString(m_set->getName())));
    m_warning =
        tr("WARNING: \nThe current metadata is equal to already existing Set '%1'.\n\"Overwrite\" would remove it "
           "and save the Set '%2'.");
    ShowDuplicate();
}
