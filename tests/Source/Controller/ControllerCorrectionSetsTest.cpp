// The controller's work on correction sets, with simulated cameras that fail on demand.
#include "CorrectionSetData.h"
#include "Failure.h"
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
    explicit Session(int row)
    {
        QObject::connect(&camera, &Controller::ErrorSignal, &view, [this](const QString& text) { Tell(text + '|'); });
        QObject::connect(&camera, &Controller::CameraDisconnected, &view, [this] { Tell("lost|"); });
        Select(row);
    }
    void Select(int row)
    {
        camera.SetNewIndex(row, view.GetCamerasList()->GetCamerasList().at(row)->ID);
        camera.StartStopAcquisition();
    }
    void Tell(const QString& text)
    {
        std::async(std::launch::async, [this] { camera.GetCameraId(); }).wait(); // nobody holds the lock
        told += text;
    }
    void Show(const KTR::DPC::SensorDefectList& defects)
    {
        model.setupModelData(defects, 64, 48);
        told += QString::number(model.rowCount()).remove('0');
    }
    void Write(const QString& set, int count)
    {
        model.setupModelData(Entries.mid(0, count), 64, 48);
        Show(camera.WriteCorrectionSet(set.toStdString(), {{"Gain", 2.0}}, &model));
    }
    void TellSets()
    {
        QList<CorrectionSetData*> sets;
        camera.GetCorrectionSets(&sets);
        for (const CorrectionSetData* const set : sets)
        {
            told += QString::fromStdString(set->getName()) + (set->IsWritable() ? "w" : "") +
                    (set->IsAvailable() ? "a" : "") + (set->IsEmpty() ? "e" : "") + (set->GetIfDpcOn() ? "o " : " ");
        }
        qDeleteAll(sets);
    }
    // What the operations tell: messages, numbers of defects in the list, sets and their flags, names.
    QString Do(const QString& operations)
    {
        for (const QString& operation : operations.split('+'))
        {
            const QString set = operation.section(' ', 1, 1);
            const auto choose = [&] { camera.SetDefaultCorrectionSet(set.toStdString()); };
            operation.startsWith("read")      ? Show(camera.ReadCorrectionSet(set, &model))
            : operation.startsWith("write")   ? Write(set, operation.section(' ', 2).toInt())
            : operation.startsWith("toggle")  ? camera.SetDpcOnOff(set)
            : operation.startsWith("restore") ? camera.RestoreSetToDefault(set)
            : operation.startsWith("list")    ? TellSets()
            : operation.startsWith("choose")  ? Tell(FailureOf(choose).c_str())
                                              : Tell(camera.GetDefaultCorrectionSet().c_str());
        }
        return std::exchange(told, {});
    }

    Controller& camera = *controller;
    TreeModel model;
    QString told;
};

class CorrectionSets : public SimulatedSystem
{
protected:
    CorrectionSets()
    {
        const QByteArray more =
            R"("serial": "1", "width": 64, "height": 48, "fileSizeMax": 200, "blockSize": 128, "frameRate": 500})";
        WriteRig(R"({"id": "O", "model": "OSTREL T", "firmware": "ostrel",)" + more +
                 R"(,{"id": "N", "model": "Dreli G-301", "firmware": "plain",)" + more +
                 R"(,{"id": "P", "model": "Vesk", "firmware": "plain",)" + more);
    }
    // What the camera does from its next start or plugging on: operation, feature, call. None is no fault.
    void Fail(const QString& fault, const char* effect = R"("code": -13, "count": 0)") const
    {
        const QString rule = R"({"operation": "%1", "feature": "%2", "call": %3, %4})";
        const QStringList words = fault.split(' ') << ""
                                                   << "";
        const QString json = rule.arg(words[0], words[1], words[2], effect);
        Control({"fault", "O", "clear"});
        fault.isEmpty() ? void() : Control({"fault", "O", json.toStdString()});
    }
};

// Row of the camera; what fails; operations, each in a session of its own; what it tells.
constexpr const char* Sessions = R"(
1;;read User,write User 1,toggle User,restore User;Camera or DPC is not supported|
2;;read User,write User 1,toggle User,restore User;Camera or DPC is not supported|
1;;list,default;
2;;list,default;
2;;choose User;Couldn't set Correction Set "User" as default!
0;;write Preset 1;Factory set can't be overwritten!|
0;;write User 10;Not enough memory in the camera|
0;;write Lost 1;The camera has no correction set "Lost".|
0;;choose Lost;Couldn't set Correction Set "Lost" as default!
0;;restore User;RestoreFactorySettings is not available for Ostrel Cameras|
0;IsWritable FileOperationExecute 1;write User 1;Correction set is not writable|
0;FileWrite DefectPixelCorrectionUser 1;write User 1;Error with saving pixels\nCould not execute file operation.#
0;GetEntries CorrectionSet 1;read User,write User 1,toggle User,restore User,list;Could not get enum values of CorrectionSetSelect : Could not enum entries "CorrectionSet".#
0;GetEntry CorrectionSet 1;toggle User;Could not set CorrectionSetSelector for CorrectionSetUser.\nCould not get enum entry "User" of feature "CorrectionSet".#
0;IsValueAvailable CorrectionSet 2;list;Could not query availability of enum entry "User" from feature "CorrectionSet".#Presetao 
0;GetValue CorrectionSetDefault 1;default;
0;;write User 7+read User+write User 10+read User+write User 1;44Not enough memory in the camera|41
0;;list+toggle User+list+toggle User+list;Presetao Userwa Preseta Userwao Preseta Userwa 
0;;default+choose User+default;PresetUser)";

TEST_F(CorrectionSets, TellWhatTheyGiveAndWhatStandsInTheWay)
{
    bool streams = false;
    for (const QString& line : QString(Sessions).trimmed().split('\n'))
    {
        const QStringList fields = line.split(';');
        const QString told = QString(fields[3]).replace("#", " (Error code: -13)|").replace("\\n", "\n");
        for (const QString& operations : fields[2].split(','))
        {
            SCOPED_TRACE((operations + " in " + line).toStdString());
            Control({"erase", "O"});
            Fail(fields[1]);
            Session session(fields[0].toInt());
            streams = !streams || !session.camera.StopIfStreaming();
            QString events;
            QTimer::singleShot(0, &session.view, [&] { events = session.camera.GetIfStreaming() ? "on" : "off"; });
            EXPECT_EQ(session.Do(operations).toStdString(), told.toStdString());
            EXPECT_EQ(session.camera.GetIfStreaming(), streams);
            const bool runsEvents = !operations.contains(QRegularExpression("^(restore|choose|default)"));
            EXPECT_EQ(events.toStdString(), !runsEvents ? "" : streams ? "on" : "off");
            QCoreApplication::processEvents();
        }
    }
}

// The camera refuses, or is pulled, at each step of an upload in turn.
TEST_F(CorrectionSets, UploadsBreakOffAtEachStep)
{
    int errors = 0;
    const auto breaksOff = [&](const QString& step, bool pull)
    {
        SCOPED_TRACE(step.toStdString());
        Fail({});
        EXPECT_EQ(Session(0).Do("write User 1"), "1");
        Fail(step, pull ? R"("unplug": true)" : R"("code": -13)");
        Session session(0);
        const QString told = session.Do("write User 7");
        errors += told.startsWith("Error with saving pixels\n") ? 1 : 0;
        if (told == "4")
        {
            return false;
        }
        if (pull)
        {
            EXPECT_TRUE(QTest::qWaitFor([&] { return session.told == "lost|"; }, Patience));
            Fail({});
            Control({"plug", "O"});
            EXPECT_TRUE(session.ComesToShow({"O", "N", "P"}));
            session.Select(0);
            EXPECT_TRUE(QStringList({"lost|1", "lost|4"}).contains(session.Do("read User"))) << "all or nothing";
        }
        EXPECT_TRUE(told.endsWith('|') || told.endsWith(session.Do("read User"))) << "what the camera holds";
        EXPECT_EQ(session.Do("write User 7+write User 1"), "41");
        EXPECT_TRUE(session.camera.GetIfStreaming());
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
