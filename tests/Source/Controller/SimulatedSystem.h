// The controller on a thread of its own, as the window has it, with simulated cameras behind the camera API.
#pragma once

#include "AsynchronousCameraController.h"

#include "CamerasList.h"
#include "CustomListView.h"
#include "ImageDoubleBuffer.h"
#include "SimulatedFolder.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QThread>

using Controller = AsynchronousCameraController;
constexpr int Patience = 20'000; // milliseconds

// Has the controller as long as the window has it, and takes it down in the window's order.
struct Window
{
    Window() : controller(std::make_unique<Controller>(&view, -1, QString(), false, images))
    {
        controller->moveToThread(&thread);
        thread.start(QThread::InheritPriority);
    }
    ~Window()
    {
        thread.quit();
        EXPECT_TRUE(thread.wait(Patience));
        controller.reset();
    }
    std::vector<std::string> Ids() const
    {
        std::vector<std::string> ids;
        for (const CamerasInfo* const info : view.GetCamerasList()->GetCamerasList())
        {
            ids.push_back(info->ID.toStdString());
        }
        return ids;
    }
    // Runs the event loop until the list shows these cameras.
    bool ComesToShow(const std::vector<std::string>& ids) const
    {
        return QTest::qWaitFor([&] { return Ids() == ids; }, Patience);
    }

    CustomListView view;
    ImageDoubleBuffer images;
    QThread thread;
    std::unique_ptr<Controller> controller;
};

// Five small simulated cameras, or a test's own ones.
class SimulatedSystem : public testing::Test, protected SimulatedFolder
{
protected:
    SimulatedSystem() : SimulatedFolder({})
    {
        QByteArrayList cameras;
        for (const std::string& id : m_all)
        {
            cameras << QByteArray(
                           R"({"id": "%", "model": "OSTREL T-1", "serial": "7", "firmware": "ostrel", "width": 64,
                                      "height": 48, "frameRate": 500, "fileSizeMax": 200, "blockSize": 128})")
                           .replace("%", id.c_str());
        }
        WriteRig(cameras.join(','));
    }
    // For the next start of the camera API.
    static void WriteRig(const QByteArray& cameras) { WriteFile("rig.json", R"({"cameras": [)" + cameras + "]}"); }

    // What camera A does from its next start or plugging on: operation, feature, call and effect. None is no fault.
    void Fail(const QStringList& fault, const char* effect) const
    {
        const QString rule = R"({"operation": "%1", "feature": "%2", "call": %3, %4})";
        Control({"fault", "A", "clear"});
        fault.size() < 3 ? void()
                         : Control({"fault", "A", rule.arg(fault[0], fault[1], fault[2], effect).toStdString()});
    }

    const std::vector<std::string> m_all = {"A", "B", "C", "D", "E"};
};
