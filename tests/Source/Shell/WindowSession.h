// The real window on simulated cameras, in a working directory of its own.
#pragma once

#include "MainWindow.h"

#include "AsynchronousCameraController.h"
#include "Control/ControlProgram.h"
#include "CustomGraphicsView.h"
#include "CustomListView.h"
#include "LoaderDialog.h"
#include "Rig/Rig.h"
#include "TreeModel.h"
#include "Widgets.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QGraphicsPixmapItem>
#include <QTemporaryDir>
#include <QTest>

#include <sstream>

constexpr int Patience = 20'000; // milliseconds

class WindowSession : public testing::Test
{
protected:
    explicit WindowSession(const QByteArray& rig)
    {
        QDir::setCurrent(m_folder.path());
        WriteFile("rig.json", rig);
        WriteFile("Lorvane.ini", "[info]\nTutorialFinished=true\n");
        qputenv("ZLT_SIMULATION_RIG", m_folder.filePath("rig.json").toUtf8());
        qputenv("ZLT_SIMULATION_STATE", m_folder.filePath("state").toUtf8());
        qputenv("ZLT_PROVIDER_PATH", SIMULATION_FOLDER);
        window = std::make_unique<MainWindow>();
        window->show();
        window->SetProperSizes();
    }
    ~WindowSession() override
    {
        window.reset();
        QDir::setCurrent(QDir::rootPath());
    }

    static void WriteFile(const char* name, const QByteArray& text)
    {
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    void Control(const std::vector<std::string>& arguments) const
    {
        std::ostringstream out;
        std::ostringstream err;
        Simulation::ControlProgram program(Simulation::LoadRig(), m_folder.filePath("state").toStdString(), out, err);
        ASSERT_EQ(program.Run(arguments), 0) << err.str();
    }
    template <class Widget> Widget* Find(const char* name) const { return &::Find<Widget>(*window, name); }
    void Click(const char* name) const { ::Click(*window, name); }
    CustomGraphicsView& View() const { return *Find<CustomGraphicsView>("graphicsView"); }
    TreeModel& Model() const { return *window->findChild<TreeModel*>(); }
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
        QTest::mousePress(View().viewport(), Qt::LeftButton, {}, place(from));
        QMouseEvent move(QEvent::MouseMove, place(to), Qt::LeftButton, Qt::LeftButton, {});
        QApplication::sendEvent(View().viewport(), &move);
        QTest::mouseRelease(View().viewport(), Qt::LeftButton, {}, place(to));
    }

    QTemporaryDir m_folder;
    std::unique_ptr<MainWindow> window;
};
