// The window on its own, without any camera: start, buttons, tools, keys, busy state, overview, files, end.
#include "MainWindow.h"

#include "CustomGraphicsView.h"
#include "ModalAnswers.h"
#include "OverviewPanel.h"
#include "PixelListXml.h"
#include "ScreenScale.h"
#include "TreeModel.h"
#include "Widgets.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QGraphicsScene>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

namespace
{

class MainWindowTest : public testing::Test
{
protected:
    MainWindowTest()
    {
        // The window's files lie in the current directory; an empty provider path stands for no camera API.
        qputenv("ZLT_PROVIDER_PATH", m_folder.filePath("no-providers").toLocal8Bit());
        QDir::setCurrent(m_folder.path());
        Start();
    }
    ~MainWindowTest() override
    {
        m_window.reset();
        QDir::setCurrent(QDir::rootPath());
    }

    void Start()
    {
        m_window.reset();
        m_window = std::make_unique<MainWindow>();
        m_window->show();
        m_window->SetProperSizes();
    }
    template <class Widget> Widget* Find(const char* name) const { return &::Find<Widget>(*m_window, name); }
    QCheckBox* Check(const char* name) const { return Find<QCheckBox>(name); }
    void Click(const char* name) const { ::Click(*m_window, name); }
    TreeModel* Model() const { return m_window->findChild<TreeModel*>(); }

    QTemporaryDir m_folder;
    std::unique_ptr<MainWindow> m_window;
};

TEST_F(MainWindowTest, StartsWithoutAnyCamera)
{
    EXPECT_TRUE(Check("cameraListButton")->isChecked());
    EXPECT_TRUE(Find<QWidget>("labelCameras")->isVisible());
    for (const char* name : {"cameraOptionsButton", "pixelListButton", "importButton"})
    {
        EXPECT_FALSE(Find<QWidget>(name)->isEnabled()) << name;
    }
    EXPECT_FALSE(Find<QWidget>("languageBox")->isVisible());
    EXPECT_EQ(qApp->font().family().toStdString(), "Open Sans");

    Click("cameraListButton");
    EXPECT_FALSE(Find<QWidget>("refreshLishButton")->isVisible());
}

TEST_F(MainWindowTest, AsksForACameraAtMostOnceASecond)
{
    ModalAnswers answers;
    answers.ThenClick("okButton");
    QTest::keyClick(m_window.get(), Qt::Key_P);
    QTest::keyClick(m_window.get(), Qt::Key_P);
    ASSERT_EQ(answers.Seen().size(), 1U);
    EXPECT_TRUE(answers.Seen()[0].contains("Please select a camera"));

    answers.ThenClick("okButton");
    QTest::qWait(1100);
    QTest::keyClick(m_window.get(), Qt::Key_P);
    EXPECT_EQ(answers.Seen().size(), 2U);

    // The button that was clicked in vain does not keep showing a running stream.
    answers.ThenClick("okButton");
    Click("playPauseButton");
    EXPECT_TRUE(QTest::qWaitFor([this] { return !Check("playPauseButton")->isChecked(); }, 2000));
}

TEST_F(MainWindowTest, ExactlyOneToolIsDownAndCannotBeReleased)
{
    struct Case
    {
        Qt::Key key;
        const char* button;
        const char* caption;
        Qt::CursorShape cursor;
    };
    const Case cases[] = {{Qt::Key_1, "mouseRectAddButton", "labelSelect", Qt::CrossCursor},
                          {Qt::Key_2, "mouseGrabButton", "labelGrab", Qt::OpenHandCursor},
                          {Qt::Key_3, "mouseRubber", "labelErase", Qt::CrossCursor}};
    for (const bool byKey : {true, false})
    {
        for (const Case& now : cases)
        {
            SCOPED_TRACE(now.button);
            byKey ? QTest::keyClick(m_window.get(), now.key) : Click(now.button);
            for (const Case& other : cases)
            {
                const bool active = &other == &now;
                EXPECT_EQ(Check(other.button)->isChecked(), active) << other.button;
                EXPECT_EQ(Check(other.button)->isEnabled(), !active) << other.button;
                EXPECT_EQ(Find<QLabel>(other.caption)->styleSheet().startsWith("color:white"), active) << other.caption;
            }
            EXPECT_EQ(Find<CustomGraphicsView>("graphicsView")->cursor().shape(), now.cursor);
        }
    }
    QTest::keyClick(m_window.get(), Qt::Key_2);
    m_window->EnableSelectEraseButtons(false);
    QTest::keyClick(m_window.get(), Qt::Key_1);
    QTest::keyClick(m_window.get(), Qt::Key_3);
    EXPECT_TRUE(Check("mouseGrabButton")->isChecked());
    EXPECT_FALSE(Check("mouseRectAddButton")->isEnabled());
}

TEST_F(MainWindowTest, ZoomKeysNeedAModifier)
{
    auto* view = Find<CustomGraphicsView>("graphicsView");
    view->scene()->addRect(0, 0, 4000, 3000);
    struct Case
    {
        Qt::Key key;
        Qt::KeyboardModifier modifier;
        const char* text;
    };
    for (const Case& now :
         {Case{Qt::Key_Plus, Qt::NoModifier, "100 %"}, Case{Qt::Key_Plus, Qt::ShiftModifier, "125 %"},
          Case{Qt::Key_Plus, Qt::KeypadModifier, "156 %"}, Case{Qt::Key_Minus, Qt::NoModifier, "156 %"},
          Case{Qt::Key_Minus, Qt::KeypadModifier, "125 %"}})
    {
        QTest::keyClick(m_window.get(), now.key, now.modifier);
        EXPECT_EQ(Find<QPushButton>("scaleButton")->text().trimmed().toStdString(), now.text);
    }
    for (const auto& [button, scale] : {std::pair("scaleButton", 1.0), {"zoomInButton", 1.25}, {"zoomOutButton", 1.0}})
    {
        Click(button);
        EXPECT_DOUBLE_EQ(view->ReturnCurrentScale(), scale) << button;
    }
}

TEST_F(MainWindowTest, BusyStateTakesEverythingOutOfUseAndGivesItBack)
{
    const QStringList off = {"graphicsView", "importButton", "cameraListButton", "mouseRectAddButton", "mouseRubber"};
    for (const bool editing : {true, false})
    {
        m_window->EnableSelectEraseButtons(editing);
        QTest::keyClick(m_window.get(), Qt::Key_2);
        m_window->ApplicationLoaderShow();
        for (const QString& name : off)
        {
            EXPECT_FALSE(Find<QWidget>(name.toLatin1())->isEnabled()) << name.toStdString();
        }
        EXPECT_NE(QApplication::overrideCursor(), nullptr);

        m_window->ApplicationLoaderClose();
        for (const QString& name : off)
        {
            const bool wanted = editing || (name != "mouseRectAddButton" && name != "mouseRubber");
            EXPECT_EQ(Find<QWidget>(name.toLatin1())->isEnabled(), wanted) << name.toStdString();
        }
        EXPECT_FALSE(Check("mouseGrabButton")->isChecked());
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    }
}

TEST_F(MainWindowTest, WelcomesOnceAndRemembersIt)
{
    {
        ModalAnswers answers;
        answers.ThenClick("showAroundButton");
        m_window->WelcomingDialog();
        EXPECT_TRUE(Check("supportButton")->isChecked()); // the tour is open
        m_window->WelcomingDialog();
        EXPECT_EQ(answers.Seen().size(), 1U);
        EXPECT_FALSE(QFile::exists("Lorvane.ini")); // written at the end only
    }
    Start();
    EXPECT_TRUE(QSettings("Lorvane.ini", QSettings::IniFormat).value("info/TutorialFinished").toBool());
    const ModalAnswers none;
    m_window->WelcomingDialog();
    EXPECT_FALSE(Check("supportButton")->isChecked());
}

TEST_F(MainWindowTest, TourClosesWithItsButtonAndForTheAboutDialog)
{
    ModalAnswers answers;
    answers.ThenClick("exitButton");
    QTest::mouseClick(Check("supportButton"), Qt::LeftButton, {}, {3, 3});
    EXPECT_TRUE(Check("supportButton")->isChecked()) << "also at its edge";
    Click("aboutButton");
    EXPECT_FALSE(Check("supportButton")->isChecked());
    ASSERT_EQ(answers.Seen().size(), 1U);
    EXPECT_TRUE(answers.Seen()[0].contains("Version: 2.2.0.259137b")) << answers.Seen()[0].toStdString();
}

TEST_F(MainWindowTest, OverviewIsTheLargestFractionBelowItsLimit)
{
    auto* panel = m_window->findChild<OverviewPanel*>();
    for (const auto& [image, overview] : {std::pair(QPoint(1000, 800), QSize(500, 400)),
                                          {{500, 300}, {500, 300}},
                                          {{501, 300}, {250, 150}},
                                          {{1936, 1216}, {484, 304}},
                                          {{0, 0}, {0, 0}}})
    {
        m_window->SetMaximumOverviewSizes(image);
        EXPECT_EQ(panel->GetMaximumSizes(), overview) << image.x();
    }
    Click("overviewButton");
    EXPECT_TRUE(panel->isVisible());
}

TEST_F(MainWindowTest, SpeaksGermanAndEnglishAndClipsNothing)
{
    const auto clipped = [&]
    {
        QStringList texts;
        for (const QWidget* widget : m_window->findChildren<QWidget*>())
        {
            const auto* label = qobject_cast<const QLabel*>(widget);
            const auto* button = qobject_cast<const QAbstractButton*>(widget);
            const QString text = label ? label->text() : button ? button->text() : QString();
            if (!text.isEmpty() && widget->isVisible() && widget->objectName() != "cameraNameLabel" &&
                widget->width() < widget->minimumSizeHint().width())
            {
                texts << text;
            }
        }
        return texts;
    };
    for (const auto& [name, cameras] : {std::pair("Deutsch", "Kameras"), {"English", "Cameras"}})
    {
        Find<QComboBox>("languageBox")->setCurrentText(name);
        EXPECT_TRUE(
            QTest::qWaitFor([&, text = QString(cameras)] { return Find<QLabel>("labelCameras")->text() == text; }));
        EXPECT_TRUE(QTest::qWaitFor([&] { return clipped().isEmpty(); })) << clipped().join(", ").toStdString();
    }
}

TEST_F(MainWindowTest, MaximisesRestoresAndCloses)
{
    Click("maximizeButton");
    EXPECT_EQ(m_window->windowState(), Qt::WindowMaximized);
    Click("maximizeButton");
    EXPECT_EQ(m_window->windowState(), Qt::WindowNoState);
    Click("exitButton");
    EXPECT_FALSE(m_window->isVisible());
}

TEST(ScreenScale, TakesQuartersAndNeverShrinks)
{
    for (const auto& [dotsPerInch, scale] : {std::pair{72.0, 1.0}, {100.0, 1.0}, {144.3, 1.5}, {192.0, 2.0}})
    {
        EXPECT_DOUBLE_EQ(Lorvane::ScaleForDotsPerInch(dotsPerInch), scale) << dotsPerInch;
    }
}

class PixelListFiles : public MainWindowTest
{
protected:
    // Names the file in the dialog as a user would.
    static ModalAnswers::Answer Choose(const QString& path)
    {
        return [path](QDialog& dialog)
        {
            auto& files = dynamic_cast<QFileDialog&>(dialog);
            files.setDirectory(QFileInfo(path).path());
            files.findChild<QLineEdit*>("fileNameEdit")->setText(path);
            files.findChild<QDialogButtonBox*>()->buttons().constFirst()->click();
        };
    }
};

TEST_F(PixelListFiles, SavesWhatTheListHolds)
{
    const QString path = m_folder.filePath("list");
    {
        ModalAnswers answers;
        answers.ThenClick("okButton");
        m_window->SaveXmlFile();
        ASSERT_EQ(answers.Seen().size(), 1U);
        EXPECT_TRUE(answers.Seen()[0].contains("List is empty!"));
    }
    Model()->addDefectItem(10, 20, 1, 1, 0, 0);
    {
        ModalAnswers answers;
        answers.Then([](QDialog& dialog) { dialog.reject(); });
        m_window->SaveXmlFile();
        EXPECT_FALSE(QFile::exists(path));
    }
    ModalAnswers answers;
    answers.Then(Choose(path));
    m_window->SaveXmlFile();
    QFile file(path); // the name as given, without an extension of ours
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll().toStdString(), ToXml(Model()->getDefectList()).toStdString());
    EXPECT_TRUE(Find<QWidget>("graphicsView")->isEnabled());
}

TEST_F(PixelListFiles, LoadingWithoutACameraSaysSoAfterTheChoice)
{
    Model()->addDefectItem(1, 2, 1, 1, 0, 0);
    const QString path = m_folder.filePath("list.xml");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    ModalAnswers answers;
    answers.Then(Choose(path)).ThenClick("okButton");
    m_window->LoadXmlFile();
    ASSERT_EQ(answers.Seen().size(), 2U);
    EXPECT_TRUE(answers.Seen()[1].contains("To load .xml file\nchoose a camera first"));
    EXPECT_EQ(Model()->rowCount(), 1);
}

} // namespace
