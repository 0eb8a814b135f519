// Asks the user before something is overwritten.
#include "ConfirmDialog.h"

#include "ui_ConfirmDialog.h"

ConfirmDialog::ConfirmDialog(const QString& title, const QString& text) : m_ui(std::make_unique<Ui::ConfirmDialog>())
{
    m_ui->setupUi(this);
    setWindowTitle(title);
    m_ui->titleLabel->setText(title);
    m_ui->textLabel->setText(text);
    FitText(*m_ui->textArea, *m_ui->textLabel);
    connect(m_ui->confirmButton, &QPushButton::clicked, this, &ConfirmDialog::OnConfirmButtonClick);
    connect(m_ui->cancelButton, &QPushButton::clicked, this, &ConfirmDialog::OnCancelButtonClick);
    connect(m_ui->exitButton, &QPushButton::clicked, this, &ConfirmDialog::OnCancelButtonClick);
    SetStrings();
}

ConfirmDialog::~ConfirmDialog() = default;

bool ConfirmDialog::executeDialog(const QString& title, const QString& text)
{
    ConfirmDialog dialog(title, text);
    dialog.ExecuteOverActiveWindow();
    return dialog.GetConfirmation();
}

void ConfirmDialog::OnConfirmButtonClick()
{
    m_confirmation = true;
    accept();
}

void ConfirmDialog::OnCancelButtonClick()
{
    m_confirmation = false;
    reject();
}

void ConfirmDialog::SetStrings()
{
    m_ui->confirmButton->setText(tr("Confirm"));
    m_ui->cancelButton->setText(tr("Cancel"));
    m_ui->exitButton->setAccessibleName(tr("Cancel"));
}
