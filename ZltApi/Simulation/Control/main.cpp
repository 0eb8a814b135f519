// Entry of the control program of the simulated cameras.
#include "Control/ControlProgram.h"
#include "Rig/Rig.h"
#include "State/CameraState.h"

#include <exception>
#include <iostream>
#include <string>
#include <vector>

int main(int argc, char** argv)
{
    try
    {
        using namespace Simulation;
        ControlProgram program(LoadRig(), CameraState::DefaultRoot(), std::cout, std::cerr);
        return program.Run(std::vector<std::string>(argv + 1, argv + argc));
    }
    catch (const std::exception& error)
    {
        std::cerr << error.what() << '\n';
        return Simulation::ControlProgram::Failed;
    }
}
