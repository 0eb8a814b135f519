// Tells the user something.
#include "MessageDialog.h"

#include "ui_MessageDialog.h"

MessageDialog::MessageDialog(const QString& title, const QString& text, const QString& button)
    : m_ui(std::make_unique<Ui::MessageDialog>())
{
    m_ui->setupUi(this);
    setWindowTitle(title);
    m_ui->titleLabel->setText(title);
    m_ui->textLabel->setText(text);
    m_ui->okButton->setText(button);
    FitText(*m_ui->textArea, *m_ui->textLabel);
    connect(m_ui->okButton, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_ui->exitButton, &QPushButton::clicked, this, &QDialog::reject);
    SetStrings();
}

MessageDialog::~MessageDialog() = default;

void MessageDialog::ExecuteDialog(const QString& title, const QString& text, const QString& button,
                                  const std::function<void()>& onAccept)
{
    const int result = MessageDialog(title, text, button).ExecuteOverActiveWindow();
    if (result == QDialog::Accepted && onAccept)
    {
        onAccept();
    }
}

void MessageDialog::SetStrings()
{
    m_ui->exitButton->setAccessibleName(tr("Close"));
}
