// Names the program and its versions.
#include "AboutDialog.h"

#include "DialogStyle.h"
#include "ui_AboutDialog.h"

namespace
{

constexpr int LogoSize = 72; // pixels

} // namespace

AboutDialog::AboutDialog(const QString& programVersion, const QString& apiVersion)
    : m_ui(std::make_unique<Ui::AboutDialog>()),
      m_programVersion(programVersion),
      m_apiVersion(apiVersion)
{
    m_ui->setupUi(this);
    m_ui->logoLabel->setPixmap(Lorvane::IconPixmap(QStringLiteral(":/icons/resources/logo.svg"),
                                                   QSize(LogoSize, LogoSize), devicePixelRatioF()));
    m_ui->exitButton->setFocus();
    connect(m_ui->exitButton, &QPushButton::clicked, this, &AboutDialog::OnExitButtonClick);
    SetStrings();
}

AboutDialog::~AboutDialog() = default;

void AboutDialog::executeDialog(const QString& programVersion, const QString& apiVersion)
{
    AboutDialog(programVersion, apiVersion).ExecuteOverActiveWindow();
}

void AboutDialog::OnExitButtonClick()
{
    accept();
}

void AboutDialog::SetStrings()
{
    setWindowTitle(tr("About"));
    m_ui->textLabel->setText(tr("<span>Version: %1<br/>Zlt API version: %3</span>")
                                 .arg(m_programVersion.toHtmlEscaped(), m_apiVersion.toHtmlEscaped()));
    m_ui->exitButton->setText(tr("Close"));
}
