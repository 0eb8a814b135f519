// The window's construction, layout, texts and end.
#include "MainWindow.h"

#include "ApplicationStyle.h"
#include "AsynchronousCameraController.h"
#include "BottomPanel.h"
#include "CameraOptionPanel.h"
#include "CamerasInfoWriterReader.h"
#include "CaptionClick.h"
#include "CustomLabelView.h"
#include "CustomListView.h"
#include "KeyEnterReceiver.h"
#include "LeftPanel.h"
#include "LoaderDialog.h"
#include "OnboardDialog.h"
#include "OverviewPanel.h"
#include "RightPanel.h"
#include "TreeModel.h"
#include "ui_MainWindow.h"

#include <QApplication>
#include <QFontDatabase>
#include <QGraphicsPixmapItem>
#include <QGraphicsScene>
#include <QHeaderView>
#include <QScrollBar>
#include <QSizeGrip>
#include <QThread>
#include <QTranslator>
#include <QTreeView>

#include <algorithm>

namespace
{

constexpr int StreamCheckPeriodMs = 1000;
constexpr int SizeGripSize = 15;
constexpr int BottomPanelMargin = 15;

void LoadFonts()
{
    for (const char* face : {"Bold", "BoldItalic", "ExtraBold", "ExtraBoldItalic", "Italic", "Light", "LightItalic",
                             "Regular", "SemiBold", "SemiBoldItalic"})
    {
        QFontDatabase::addApplicationFont(QStringLiteral(":/fonts/fonts/OpenSans-%1.ttf").arg(QLatin1String(face)));
    }
    QApplication::setFont(QFont(QStringLiteral("Open Sans")));
}

void StyleWindowButton(QWidget& button, const char* icon, const char* hover)
{
    button.setStyleSheet(QStringLiteral("QPushButton{border:1px solid transparent;border-radius:0px;"
                                        "image:url(:/icons/resources/%1.svg);}"
                                        "QPushButton:hover{background-color:%2;}"
                                        "QPushButton:focus{border-color:rgb(47,128,237);}")
                             .arg(QLatin1String(icon), QLatin1String(hover)));
}

QList<QLabel*> CaptionsOf(const QWidget& toolBar)
{
    QList<QLabel*> captions = toolBar.findChildren<QLabel*>();
    captions.erase(
        std::remove_if(captions.begin(), captions.end(), [](const QLabel* label) { return label->buddy() == nullptr; }),
        captions.end());
    return captions;
}

} // namespace

MainWindow::MainWindow(QWidget* parent)
    : QMainWindow(parent),
      m_ui(std::make_unique<Ui::MainWindowClass>()),
      m_keyReceiver(std::make_unique<KeyEnterReceiver>()),
      m_translator(std::make_unique<QTranslator>())
{
    // Loaded, but not installed: the program starts in English.
    if (!m_translator->load(QStringLiteral(":/translations/translations/german.qm")))
    {
        m_translator.reset();
    }
    LoadFonts();

    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    m_ui->setupUi(this);
    setMouseTracking(true);
    CreateMembers();
    StyleChrome();
    PlaceChildren();
    MakeConnections();
    m_streamCheckTimer.start(StreamCheckPeriodMs);

    SetStrings();
    DisableCameraButtons();
    PlaceBottomPanel();
    m_ui->cameraListButton->setChecked(true);
    m_cameraListView->setFocus();
    CamerasInfoWriterReader().GetConfigInfo(m_tutorialFinished, m_automaticDetectionEnabled);
}

MainWindow::~MainWindow()
{
    if (m_imageThread)
    {
        m_imageThread->requestInterruption();
        m_imageThread->quit();
        m_imageThread->wait();
    }
    m_controller.reset();
    m_translator.reset();
    CamerasInfoWriterReader().SetConfigInfo(m_tutorialFinished, m_automaticDetectionEnabled);
}

void MainWindow::CreateMembers()
{
    m_treeModel = new TreeModel(this);
    m_scene = new QGraphicsScene(this);
    m_imageItem = new QGraphicsPixmapItem;
    m_cameraListView = new CustomListView(this);
    m_cameraListPanel = new LeftPanel(m_ui->widget_2, m_cameraListView);
    m_optionPanel = new CameraOptionPanel(m_ui->widget_2);
    m_overviewLabel = new CustomLabelView(this, 0, 0);
    m_overviewPanel = new OverviewPanel(this, m_overviewLabel);

    m_pixelListView = new QTreeView(m_ui->centralWidget);
    m_pixelListView->setObjectName(QStringLiteral("pixelListView"));
    m_pixelListView->setUniformRowHeights(true); // a long list is shown at once
    m_pixelListView->setModel(m_treeModel);
    m_pixelListView->verticalScrollBar()->setStyleSheet(
        QStringLiteral("QScrollBar::handle:vertical { min-height: 15px; }"));
    m_pixelListView->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_pixelListView->header()->hide();
    m_rightPanel = new RightPanel(m_pixelListView, m_ui->widget_3);

    m_controller =
        std::make_unique<AsynchronousCameraController>(m_cameraListView, m_cameraIndex, QString(), true, m_imageBuffer);
    m_bottomPanel = new BottomPanel(this);
    m_loaderDialog = new LoaderDialog(this, tr("Loading"));
    m_onboardDialog = new OnboardDialog(this);
    MakeDetectorDialog(m_controller->GetCurrentPixelFormat(), 0, 0, {});
    m_apiVersion = m_controller->GetVersion();

    m_windowOverlay.setObjectName(QStringLiteral("windowOverlay"));
    m_windowOverlay.setParent(this);
    m_windowOverlay.hide();
}

void MainWindow::StyleChrome()
{
    m_ui->customTopBar->setStyleSheet(QStringLiteral("QWidget{background-color:rgb(31,32,33);}"
                                                     "QPushButton{border:1px solid transparent;border-radius:4px;"
                                                     "padding:2px 8px;font-size:12px;color:#dbdbdb;}"
                                                     "QPushButton:hover{background-color:rgb(66,67,68);}"
                                                     "QPushButton:focus{border-color:rgb(47,128,237);}"
                                                     "QLabel{font-size:12px;}"));
    m_ui->widget->setStyleSheet(QStringLiteral("QWidget{background-color:rgb(19,20,21);}"));
    m_ui->widget_2->setStyleSheet(QStringLiteral("QWidget#widget_2{background-color:rgb(46,47,48);}"));
    m_ui->label->setStyleSheet(QStringLiteral("background-color:rgb(66,67,68);"));
    m_ui->label_9->setPixmap(QIcon(QStringLiteral(":/icons/resources/logo.svg")).pixmap(windowHandle(), QSize(20, 20)));

    StyleWindowButton(*m_ui->minimizeButton, "window-minimize", "rgb(66,67,68)");
    StyleWindowButton(*m_ui->maximizeButton, "window-maximize", "rgb(66,67,68)");
    StyleWindowButton(*m_ui->exitButton, "window-close", "rgb(196,43,28)");

    m_ui->cameraListButton->setStyleSheet(Lorvane::IconCheckBoxStyle(QStringLiteral("cameras")));
    m_ui->cameraOptionsButton->setStyleSheet(Lorvane::IconCheckBoxStyle(QStringLiteral("settings")));
    m_ui->supportButton->setStyleSheet(Lorvane::IconCheckBoxStyle(QStringLiteral("support")));
    m_ui->mouseRectAddButton->setStyleSheet(Lorvane::IconCheckBoxStyle(QStringLiteral("tool-add")));
    m_ui->mouseGrabButton->setStyleSheet(Lorvane::IconCheckBoxStyle(QStringLiteral("tool-grab")));
    m_ui->mouseRubber->setStyleSheet(Lorvane::IconCheckBoxStyle(QStringLiteral("tool-erase")));
    m_ui->pixelListButton->setStyleSheet(Lorvane::IconCheckBoxStyle(QStringLiteral("pixel-list")));
    m_ui->importButton->setStyleSheet(Lorvane::IconButtonStyle(QStringLiteral("import")));
}

void MainWindow::PlaceChildren()
{
    m_ui->leftGridLayout->addWidget(m_optionPanel);
    m_ui->rightGridLayout->addWidget(m_rightPanel);
    m_ui->leftGridLayout_2->addWidget(m_cameraListPanel, 0, 0, Qt::AlignTop);
    setWindowIcon(QIcon(QStringLiteral(":/icons/resources/logo-taskbar.png")));
    installEventFilter(m_keyReceiver.get());
    auto* const captionClick = new CaptionClick(this);
    for (QLabel* caption : CaptionsOf(*m_ui->widget))
    {
        caption->installEventFilter(captionClick);
    }
    m_optionPanel->hide();
    m_overviewPanel->hide();
    m_rightPanel->hide();
    m_rightPanel->AutomaticDetectionButton()->hide();

    // The language is fixed: its box keeps its place in the layout, but cannot be used.
    m_ui->spaceLabel->setMinimumWidth(m_ui->spaceLabel->sizeHint().width() + m_ui->languageBox->sizeHint().width());
    m_ui->languageBox->hide();

    m_ui->graphicsView->setScene(m_scene);
    m_scene->addItem(m_imageItem);

    m_sizeGrip = std::make_unique<QSizeGrip>(this);
    m_sizeGrip->setStyleSheet(QStringLiteral("background-color:none;"));
    m_sizeGrip->setGeometry(width() - SizeGripSize, height() - SizeGripSize, SizeGripSize, SizeGripSize);
}

void MainWindow::PlaceBottomPanel()
{
    m_bottomPanel->move(width() / 2 - m_bottomPanel->width() / 2,
                        height() - m_bottomPanel->height() - BottomPanelMargin);
}

void MainWindow::SetProperSizes()
{
    m_overviewPanel->resize(m_overviewPanel->GetMaximumSizes());
    MoveOverviewToCorner();
    m_overviewPanel->SetAdditionalWidth(WidthBesideOverview());
    PlaceBottomPanel();
    ChangeWindowOverlay();
}

void MainWindow::ChangeWindowOverlay()
{
    m_windowOverlay.setGeometry(x(), y(), width(), height());
    m_windowOverlay.setStyleSheet(QStringLiteral("background-color:rgb(255,255,255);"));
    m_windowOverlay.setWindowOpacity(0.5);
    m_windowOverlay.setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
}

void MainWindow::resizeEvent(QResizeEvent* event)
{
    SetProperSizes();
    m_ui->graphicsView->ScaleRectToSmallImg();
    m_sizeGrip->setGeometry(width() - SizeGripSize, height() - SizeGripSize, SizeGripSize, SizeGripSize);
    QMainWindow::resizeEvent(event);
    AutomaticOverviewViewer();
}

void MainWindow::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
    {
        SetStrings();
        return;
    }
    if (event->type() == QEvent::WindowStateChange)
    {
        StyleWindowButton(*m_ui->maximizeButton, isMaximized() ? "window-restore" : "window-maximize", "rgb(66,67,68)");
    }
    QMainWindow::changeEvent(event);
}

void MainWindow::SetStrings()
{
    m_ui->importButton->setToolTip(tr("<b>Import</b> <br/> <span style='color:gray;'>Load pixel list from an .xml file "
                                      "</span>"));
    m_ui->cameraListButton->setToolTip(
        tr("<b>Camera List</b> <br/> <span style='color:gray;'>View camera list</span>"));
    m_ui->cameraOptionsButton->setToolTip(
        tr("<b>Camera Settings</b> <br/> <span style='color:gray;'>View camera settings</span>"));
    m_ui->mouseGrabButton->setToolTip(
        tr("<b>Grab ( Press 2 )</b> <br/> <span style='color:gray;'>Move the visible part of the image</span>"));
    m_ui->mouseRectAddButton->setToolTip(
        tr("<b>Mouse Add ( Press 1 )</b> <br/> <span style='color:gray;'>Add pixels to the pixel list</span>"));
    m_ui->mouseRubber->setToolTip(
        tr("<b>Mouse Rubber ( Press 3 )</b> <br/> <span style='color:gray;'>Remove selected pixels from list</span>"));
    m_ui->pixelListButton->setToolTip(tr("<b>Pixel List</b> <br/> <span style='color:gray;'>View pixel list</span>"));

    m_ui->labelCameras->setText(tr("Cameras"));
    m_ui->labelErase->setText(tr("Erase"));
    m_ui->labelGrab->setText(tr("Grab"));
    m_ui->labelOptions->setText(tr("Settings"));
    m_ui->labelPixelList->setText(tr("Pixel list"));
    m_ui->labelSelect->setText(tr("Select"));
    m_ui->labelImport->setText(tr("Import"));
    m_ui->labelSupport->setText(tr("Support"));
    m_ui->aboutButton->setText(tr("About"));
    m_ui->aboutQtButton->setText(tr("About Qt"));

    // What the captions say to the eye.
    for (const QLabel* caption : CaptionsOf(*m_ui->widget))
    {
        caption->buddy()->setAccessibleName(caption->text());
    }

    ShowDetectionWarning();
}
