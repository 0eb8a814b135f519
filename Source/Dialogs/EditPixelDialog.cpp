// The dialog that changes a defect by its numbers.
#include "EditPixelDialog.h"

#include "DefectUiType.h"
#include "ui_DefectEntryForm.h"

EditPixelDialog::EditPixelDialog(QWidget* parent, int type, int x, int y, int sensorWidth, int sensorHeight, int width,
                                 int height)
    : DefectEntryDialog(parent),
      m_type(type),
      m_sensorWidth(sensorWidth),
      m_sensorHeight(sensorHeight),
      m_roomRight(sensorWidth - x),
      m_roomBelow(sensorHeight - y),
      m_initialWidth(width),
      m_initialHeight(height)
{
    m_ui->lineEditX->setText(QString::number(x));
    m_ui->lineEditY->setText(QString::number(y));
    m_ui->lineEditWidth->setText(QString::number(width));
    m_ui->lineEditHeight->setText(QString::number(height));
    Limit(m_ui->lineEditX, 0, sensorWidth - 1);
    Limit(m_ui->lineEditY, 0, sensorHeight - 1);
    Limit(m_ui->lineEditWidth, 1, m_roomRight - 1);
    Limit(m_ui->lineEditHeight, 1, m_roomBelow - 1);
    FixFields();
    (type == DefectUiType::Row ? m_ui->lineEditY : m_ui->lineEditX)->setFocus();
    // A cluster has no item and shows none.
    if (type != DefectUiType::Cluster && !KindText(type).isEmpty())
    {
        m_ui->comboBox->addItem(KindText(type));
    }
    m_ui->comboBox->setEnabled(false);
    for (const QLineEdit* field : {m_ui->lineEditX, m_ui->lineEditY, m_ui->lineEditWidth, m_ui->lineEditHeight})
    {
        connect(field, &QLineEdit::textChanged, this, &EditPixelDialog::ValidateEnteredValues);
    }
    connect(m_ui->confirmButton, &QPushButton::clicked, this, &EditPixelDialog::OnConfirmButtonClick);
    connect(m_ui->cancelButton, &QPushButton::clicked, this, &EditPixelDialog::OnCancelButtonClick);
    connect(m_ui->exitButton, &QPushButton::clicked, this, &EditPixelDialog::OnCancelButtonClick);
}

void EditPixelDialog::SetStrings()
{
    if (m_ui->comboBox->count() != 0)
    {
        m_ui->comboBox->setItemText(0, KindText(m_type));
    }
    ValidateEnteredValues({});
}

void EditPixelDialog::OnCancelButtonClick()
{
    m_x = -1;
    m_y = -1;
    m_width = -1;
    m_height = -1;
    reject();
}

void EditPixelDialog::OnConfirmButtonClick()
{
    const Values entered = EnteredValues();
    m_x = entered.x;
    m_y = entered.y;
    m_width = entered.width;
    m_height = entered.height;
    accept();
}

// The position is held against the size as it was, the size against the room that was there: a width below 1 is left
// to the field's validator.
void EditPixelDialog::ValidateEnteredValues(QString)
{
    const Values entered = EnteredValues();
    const bool inScope = entered.x >= 0 && entered.x < m_sensorWidth && entered.y >= 0 && entered.y < m_sensorHeight &&
                         EndsWithin(entered.x, m_initialWidth, m_sensorWidth) &&
                         EndsWithin(entered.y, m_initialHeight, m_sensorHeight) && entered.width <= m_roomRight &&
                         entered.height <= m_roomBelow;
    ShowInScope(inScope, tr("Entered values are out of scope!"));
}

void EditPixelDialog::FixFields()
{
    const bool isWhole = m_type == DefectUiType::Column || m_type == DefectUiType::Row;
    const bool isPixel = m_type == DefectUiType::SinglePixel;
    m_ui->lineEditX->setEnabled(m_type != DefectUiType::Row);
    m_ui->lineEditY->setEnabled(m_type != DefectUiType::Column);
    m_ui->lineEditWidth->setEnabled(!isWhole && !isPixel && m_type != DefectUiType::PixelColumn);
    m_ui->lineEditHeight->setEnabled(!isWhole && !isPixel && m_type != DefectUiType::PixelRow);
}
