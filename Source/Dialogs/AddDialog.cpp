// The dialog that adds a defect by its numbers.
#include "AddDialog.h"

#include "DefectInfo.h"
#include "DefectUiType.h"
#include "ui_DefectEntryForm.h"

#include <cstddef>

namespace
{

void Fix(QLineEdit* field, int value)
{
    field->setText(QString::number(value));
    field->setEnabled(false);
}

} // namespace

AddDialog::AddDialog(QWidget* parent, int width, int height, const std::vector<int>& kinds)
    : DefectEntryDialog(parent),
      m_sensorWidth(width),
      m_sensorHeight(height)
{
    for (const int kind : kinds)
    {
        const QString text = KindText(kind);
        if (!text.isEmpty())
        {
            m_ui->comboBox->addItem(text);
            m_kinds.push_back(kind);
        }
    }
    for (const QLineEdit* field : {m_ui->lineEditX, m_ui->lineEditY, m_ui->lineEditWidth, m_ui->lineEditHeight})
    {
        connect(field, &QLineEdit::textChanged, this, &AddDialog::ValidateEnteredValues);
    }
    Limit(m_ui->lineEditX, 0, width - 1);
    Limit(m_ui->lineEditY, 0, height - 1);
    Limit(m_ui->lineEditWidth, 0, width);
    Limit(m_ui->lineEditHeight, 0, height);
    connect(m_ui->comboBox, qOverload<int>(&QComboBox::currentIndexChanged), this, &AddDialog::OnCurrentItemChanged);
    connect(m_ui->confirmButton, &QPushButton::clicked, this, &AddDialog::OnButtonAddClick);
    connect(m_ui->cancelButton, &QPushButton::clicked, this, &AddDialog::OnCancelButtonClick);
    connect(m_ui->exitButton, &QPushButton::clicked, this, &AddDialog::OnCancelButtonClick);
    OnCurrentItemChanged(0);
    m_ui->comboBox->setFocus();
}

void AddDialog::SetStrings()
{
    for (std::size_t index = 0; index < m_kinds.size(); ++index)
    {
        m_ui->comboBox->setItemText(static_cast<int>(index), KindText(m_kinds[index]));
    }
}

void AddDialog::OnButtonAddClick()
{
    const Values entered = EnteredValues();
    const int kind = CurrentKind();
    if (kind != -1)
    {
        const int width = kind == DefectUiType::Row ? m_sensorWidth : entered.width;
        const int height = kind == DefectUiType::Column ? m_sensorHeight : entered.height;
        Q_EMIT SendDataBack(entered.x, entered.y, width, height, kind, DefectInfo::NewColor);
    }
    close();
}

void AddDialog::OnCancelButtonClick()
{
    close();
}

void AddDialog::OnCurrentItemChanged(int index)
{
    m_currentIndex = index;
    for (QLineEdit* field : {m_ui->lineEditX, m_ui->lineEditY, m_ui->lineEditWidth, m_ui->lineEditHeight})
    {
        field->setEnabled(true);
    }
    m_ui->lineEditWidth->clear();
    m_ui->lineEditHeight->clear();
    switch (CurrentKind())
    {
    case DefectUiType::SinglePixel:
        Fix(m_ui->lineEditWidth, 1);
        Fix(m_ui->lineEditHeight, 1);
        break;
    case DefectUiType::PixelColumn:
        Fix(m_ui->lineEditWidth, 1);
        break;
    case DefectUiType::PixelRow:
        Fix(m_ui->lineEditHeight, 1);
        break;
    case DefectUiType::Column:
        Fix(m_ui->lineEditY, 0);
        Fix(m_ui->lineEditWidth, 1);
        Fix(m_ui->lineEditHeight, m_sensorHeight);
        break;
    case DefectUiType::Row:
        Fix(m_ui->lineEditX, 0);
        Fix(m_ui->lineEditWidth, m_sensorWidth);
        Fix(m_ui->lineEditHeight, 1);
        break;
    default:
        break;
    }
}

void AddDialog::ValidateEnteredValues(QString)
{
    const Values entered = EnteredValues();
    const bool inScope = entered.x >= 0 && entered.x < m_sensorWidth && entered.y >= 0 && entered.y < m_sensorHeight &&
                         EndsWithin(entered.x, entered.width, m_sensorWidth) &&
                         EndsWithin(entered.y, entered.height, m_sensorHeight) && entered.width >= 1 &&
                         entered.height >= 1;
    // Not translated.
    ShowInScope(inScope, QStringLiteral("Entered values are out of scope!"));
}

int AddDialog::CurrentKind() const
{
    const auto index = static_cast<std::size_t>(m_currentIndex);
    return m_currentIndex >= 0 && index < m_kinds.size() ? m_kinds[index] : -1;
}
