// A working directory of a test's own, with the simulated cameras behind the camera API.
#pragma once

#include "Control/ControlProgram.h"
#include "Rig/Rig.h"
#include "WorkingFolder.h"

#include <sstream>

class SimulatedFolder : public WorkingFolder
{
public:
    // The rig is a JSON object.
    explicit SimulatedFolder(const QByteArray& rig)
    {
        WriteFile("rig.json", rig);
        qputenv("ZLT_SIMULATION_RIG", Path("rig.json").toUtf8());
        qputenv("ZLT_SIMULATION_STATE", Path("state").toUtf8());
        qputenv("ZLT_PROVIDER_PATH", SIMULATION_FOLDER);
    }
    void Control(const std::vector<std::string>& arguments) const
    {
        std::ostringstream out;
        std::ostringstream err;
        Simulation::ControlProgram program(Simulation::LoadRig(), Path("state").toStdString(), out, err);
        ASSERT_EQ(program.Run(arguments), 0) << err.str();
    }
};
