// The real window in a working directory of its own.
#pragma once

#include "MainWindow.h"

#include "CustomGraphicsView.h"
#include "CustomListView.h"
#include "LoaderDialog.h"
#include "ModalAnswers.h"
#include "SentEvents.h"
#include "SimulatedFolder.h"
#include "TreeModel.h"
#include "Widgets.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QGraphicsPixmapItem>
#include <QTest>

constexpr int Patience = 20'000; // milliseconds

class OpenWindow
{
protected:
    // Also in place of the one before.
    void Start()
    {
        window.reset();
        window = std::make_unique<MainWindow>();
        window->show();
        window->SetProperSizes();
    }
    template <class Widget> Widget* Find(const char* name) const { return &::Find<Widget>(*window, name); }
    void Click(const char* name) const { ::Click(*window, name); }
    // The act brings a dialog with this text, which is left by the button.
    template <class Act> void ExpectMessage(const QString& text, const Act& act, const char* button = "okButton")
    {
        const auto before = answers.Seen().size();
        answers.ThenClick(button);
        act();
        ASSERT_TRUE(QTest::qWaitFor([&] { return answers.Seen().size() > before; }, Patience));
        EXPECT_TRUE(answers.Seen().back().contains(text)) << answers.Seen().back().toStdString();
    }
    TreeModel& Model() const { return *window->findChild<TreeModel*>(); }
    // Names the file in the dialog as a user would.
    static ModalAnswers::Answer ChooseFile(const QString& path)
    {
        return [path](QDialog& dialog)
        {
            auto& files = dynamic_cast<QFileDialog&>(dialog);
            files.setDirectory(QFileInfo(path).path());
            files.findChild<QLineEdit*>("fileNameEdit")->setText(path);
            files.findChild<QDialogButtonBox*>()->buttons().constFirst()->click();
        };
    }

    ModalAnswers answers;
    std::unique_ptr<MainWindow> window;
};

// The real window on simulated cameras.
class WindowSession : public testing::Test, protected SimulatedFolder, protected OpenWindow
{
protected:
    explicit WindowSession(const QByteArray& rig) : SimulatedFolder(rig)
    {
        WriteFile("Lorvane.ini", "[info]\nTutorialFinished=true\n");
        Start();
    }

    CustomGraphicsView& View() const { return *Find<CustomGraphicsView>("graphicsView"); }
    QWidget& Loader() const { return *window->findChild<LoaderDialog*>(); }
    static bool Waits(const std::function<bool()>& condition) { return QTest::qWaitFor(condition, Patience); }

    void ClickRow(int row) const
    {
        auto* const list = window->findChild<CustomListView*>();
        if (!list->isVisible())
        {
            Click("cameraListButton");
        }
        ASSERT_TRUE(Waits([&] { return list->model()->rowCount() > row; }));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualRect(list->model()->index(row, 0)).center());
    }
    // Until the live image is there and the right panel has opened by itself.
    void Pick(int row) const
    {
        ClickRow(row);
        ASSERT_TRUE(Waits([&] { return !Loader().isVisible() && Find<QCheckBox>("pixelListButton")->isChecked(); }));
        ASSERT_TRUE(Waits([&] { return !Image().isNull(); }));
    }
    // As the user does who opens the box of "userWidget" or "presetWidget" and takes its only line.
    void Choose(const char* list) const
    {
        auto& box = ::Find<QComboBox>(*Find<QWidget>(list), "comboBox");
        ASSERT_EQ(box.count(), 1) << list;
        Q_EMIT box.activated(0);
    }
    QImage Image() const
    {
        for (const QGraphicsItem* item : View().scene()->items())
        {
            if (const auto* pixmap = qgraphicsitem_cast<const QGraphicsPixmapItem*>(item))
            {
                return pixmap->pixmap().toImage();
            }
        }
        return {};
    }
    // Presses at the first sensor pixel and releases at the second.
    void Drag(QPoint from, QPoint to) const
    {
        const auto place = [&](QPoint pixel) { return View().mapFromScene(QPointF(pixel) + QPointF(0.25, 0.25)); };
        DragMouse(*View().viewport(), place(from), place(to));
    }
};
