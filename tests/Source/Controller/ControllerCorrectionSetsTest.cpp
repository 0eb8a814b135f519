// The controller's work on correction sets, with cameras that fail on demand.
#include "CorrectionSetData.h"
#include "Failure.h"
#include "ListedSystem.h"
#include "SimulatedSystem.h"
#include "TreeModel.h"

#include <future>

namespace
{

// The first seven have four of the kinds that the family stores; all together are too many.
const QVector<DefectInfo> Entries = {{3, 4, 1, 1, 0, 0},  {60, 4, 1, 1, 0, 0}, {7, 8, 5, 1, 2, 0}, {0, 9, 64, 1, 5, 0},
                                     {1, 1, 2, 2, 3, 0},  {9, 0, 1, 48, 4, 0}, {5, 5, 1, 9, 1, 0}, {1, 20, 1, 1, 0, 0},
                                     {1, 21, 1, 1, 0, 0}, {1, 22, 1, 1, 0, 0}};

struct Session : Window
{
    Session()
    {
        QObject::connect(&camera, &Controller::ErrorSignal, &view, [this](const QString& text) { Tell(text); });
        QObject::connect(&camera, &Controller::CameraDisconnected, &view, [this] { Tell("lost"); });
        Select();
    }
    void Select() { camera.SetNewIndex(0, "A"), camera.StartStopAcquisition(); }
    void Tell(const QString& text)
    {
        std::async(std::launch::async, [this] { camera.GetCameraId(); }).wait(); // nobody holds the lock
        told += text + '|';
    }
    // What the operations tell: messages, numbers of defects in the list, sets and their flags, names.
    QString Do(const QString& operations)
    {
        for (const QString& operation : operations.split(','))
        {
            const QString name = operation.section(' ', 0, 0);
            const QString set = operation.section(' ', 1, 1);
            const auto choose = [&] { camera.SetDefaultCorrectionSet(set.toStdString()); };
            KTR::DPC::SensorDefectList defects;
            QList<CorrectionSetData*> sets;
            model.setupModelData(Entries.mid(0, operation.section(' ', 2).toInt()), 64, 48);
            const auto take = [&](KTR::DPC::SensorDefectList list) { defects = std::move(list); };
            name == "read"      ? take(camera.ReadCorrectionSet(set, &model))
            : name == "write"   ? take(camera.WriteCorrectionSet(set.toStdString(), {{"Gain", 2.0}}, &model))
            : name == "toggle"  ? camera.SetDpcOnOff(set)
            : name == "restore" ? camera.RestoreSetToDefault(set)
            : name == "list"    ? camera.GetCorrectionSets(&sets)
            : name == "choose"  ? Tell(FailureOf(choose).c_str())
                                : Tell(camera.GetDefaultCorrectionSet().c_str());
            model.setupModelData(defects, 64, 48);
            told += model.isEmpty() ? QString() : QString::number(model.rowCount());
            for (const CorrectionSetData* const data : sets)
            {
                Tell(QString::fromStdString(data->getName()) + (data->IsWritable() ? "w" : "") +
                     (data->IsAvailable() ? "a" : "") + (data->IsEmpty() ? "e" : "") + (data->GetIfDpcOn() ? "o" : ""));
            }
            qDeleteAll(sets);
        }
        return std::exchange(told, {});
    }

    Controller& camera = *controller;
    TreeModel model;
    QString told;
};

// What fails; operations; what they tell. '#' is the code of the failure.
constexpr const char* Sessions = R"(
;write Preset 1;Factory set can't be overwritten!|
;write User 10;Not enough memory in the camera|
;write Lost 1;The camera has no correction set "Lost".|
;choose Lost;Couldn't set Correction Set "Lost" as default!|
;restore User;RestoreFactorySettings is not available for Ostrel Cameras|
IsWritable FileOperationExecute 1;write User 1;Correction set is not writable|
FileWrite DefectPixelCorrectionUser 1;write User 1;Error with saving pixels~Could not execute file operation.#
GetEntries CorrectionSet 1;toggle User;Could not get enum values of CorrectionSetSelect : Could not enum entries "CorrectionSet".#
GetEntry CorrectionSet 1;toggle User;Could not set CorrectionSetSelector for CorrectionSetUser.~Could not get enum entry "User" of feature "CorrectionSet".#
IsValueAvailable CorrectionSet 2;list;Could not query availability of enum entry "User" from feature "CorrectionSet".#Presetao|
GetValue CorrectionSetDefault 1;default;|
;write User 7,read User,write User 10,read User,write User 1;44Not enough memory in the camera|41
;list,toggle User,list,toggle User,list;Presetao|Userwa|Preseta|Userwao|Preseta|Userwa|
;default,choose User,default;Preset||User|)";

TEST_F(SimulatedSystem, CorrectionSetsAndWhatStandsInTheWay)
{
    for (const QString& line : QString(Sessions).trimmed().split('\n'))
    {
        const QStringList fields = line.split(';');
        const QString told = QString(fields[2]).replace('#', " (Error code: -13)|").replace('~', '\n');
        Control({"erase", "A"});
        Fail(fields[0].split(' '), R"("code": -13, "count": 0)");
        EXPECT_EQ(Session().Do(fields[1]).toStdString(), told.toStdString());
    }
}

TEST_F(ListedSystem, CorrectionSetsNeedAnAdapterAndAStillCamera)
{
    const auto camera = Add("A", "Dreli G-301"); // known by its name, with neither of the features that count
    Session session;
    for (const QString operation : {"read User", "write User 1", "toggle User", "restore User", "list"})
    {
        for (const bool streams : {true, false})
        {
            std::optional<bool> before;
            QTimer::singleShot(0, &session.view, [&] { before = session.camera.GetIfStreaming(); });
            camera->calls.clear();
            EXPECT_EQ(session.Do(operation), operation == "list" ? "" : "Camera or DPC is not supported|");
            EXPECT_EQ(camera->calls.size(), streams ? 3U : 0U) << "stop, release, start";
            EXPECT_EQ(session.camera.GetIfStreaming(), streams);
            EXPECT_EQ(before, std::optional(streams && operation != "restore User")) << "events first";
            QCoreApplication::processEvents();
            session.camera.StartStopAcquisition();
        }
    }
    EXPECT_EQ(session.Do("default,choose User"), "|Couldn't set Correction Set \"User\" as default!|");
}

// The camera refuses, or is pulled, at each step of an upload in turn.
TEST_F(SimulatedSystem, UploadsBreakOffAtEachStep)
{
    int errors = 0;
    const auto breaksOff = [&](const QString& step, bool pull)
    {
        SCOPED_TRACE(step.toStdString());
        Fail({}, "");
        EXPECT_EQ(Session().Do("write User 1"), "1");
        Fail(step.split(' '), pull ? R"("unplug": true)" : R"("code": -13)");
        Session session;
        const QString told = session.Do("write User 7");
        errors += told.startsWith("Error with saving pixels\n") ? 1 : 0;
        if (pull && told != "4")
        {
            EXPECT_TRUE(QTest::qWaitFor([&] { return session.told == "lost|"; }, Patience));
            Fail({}, "");
            Control({"plug", "A"});
            EXPECT_TRUE(session.ComesToShow(m_all));
            session.Select();
            EXPECT_TRUE(QStringList({"lost|1", "lost|4"}).contains(session.Do("read User"))) << "all or nothing";
        }
        EXPECT_TRUE(session.camera.GetIfStreaming());
        if (told == "4")
        {
            return false;
        }
        EXPECT_TRUE(told.endsWith('|') || told.endsWith(session.Do("read User"))) << "what the camera holds";
        EXPECT_EQ(session.Do("write User 7,write User 1"), "41");
        return true;
    };
    for (const QString step : {"RunCommand FileOperationExecute ", "SetValue FileAccessBuffer "})
    {
        for (int call = 1; breaksOff(step + QString::number(call), true); ++call)
        {
            breaksOff(step + QString::number(call), false);
        }
    }
    EXPECT_GE(errors, 10);
}

} // namespace
