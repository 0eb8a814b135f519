// Greets the user at the first start.
#include "WelcomeDialog.h"

#include "DialogStyle.h"
#include "ModalExecution.h"
#include "ui_WelcomeDialog.h"

#include <QIcon>
#include <QPainter>

WelcomeDialog::WelcomeDialog() : m_ui(std::make_unique<Ui::WelcomeDialog>())
{
    m_ui->setupUi(this);
    for (const QPushButton* button : {m_ui->showAroundButton, m_ui->noThanksButton, m_ui->exitButton})
    {
        connect(button, &QPushButton::clicked, this, &WelcomeDialog::CloseEvent);
    }
    m_ui->showAroundButton->setFocus();
    SetStrings();
}

WelcomeDialog::~WelcomeDialog() = default;

bool WelcomeDialog::ExecuteDialog(int x, int y)
{
    WelcomeDialog dialog;
    dialog.AttachToActiveWindow();
    dialog.adjustSize();
    dialog.move(x + dialog.width() / 2, y);
    Lorvane::ExecuteModal(dialog);
    return dialog.m_showAround;
}

void WelcomeDialog::CloseEvent()
{
    m_showAround = sender() == m_ui->showAroundButton;
    close();
}

void WelcomeDialog::paintEvent(QPaintEvent* event)
{
    FramelessDialog::paintEvent(event);
    QPainter painter(this);
    QIcon(QStringLiteral(":/icons/resources/welcome_img.svg")).paint(&painter, rect());
}

void WelcomeDialog::SetStrings()
{
    setWindowTitle(tr("Welcome"));
    m_ui->titleLabel->setText(tr("Welcome to\nLorvane"));
    m_ui->textLabel->setText(tr("Let us show you how to get started with\nLorvane."));
    m_ui->showAroundButton->setText(tr("Get started"));
    m_ui->noThanksButton->setText(tr("No thanks"));
    m_ui->exitButton->setAccessibleName(tr("Close"));
}
