// The commands of the control program.
#pragma once

#include "Rig/CameraConfig.h"

#include <filesystem>
#include <iosfwd>
#include <string>
#include <vector>

namespace Simulation
{

// Acts on the simulated cameras, in this or in other processes, through the state directory.
class ControlProgram
{
public:
    enum ExitStatus
    {
        Done = 0,
        Failed = 1,
        WrongUsage = 2
    };

    ControlProgram(std::vector<CameraConfig> rig, std::filesystem::path root, std::ostream& output,
                   std::ostream& errors);

    // Results go to the output, one sentence to the errors when the status is not Done.
    ExitStatus Run(const std::vector<std::string>& arguments);

private:
    ExitStatus Dispatch(const std::vector<std::string>& arguments);
    ExitStatus Usage();
    ExitStatus List();
    ExitStatus Defects(const CameraConfig& camera);
    void Plug(const CameraConfig& camera, bool plugged);
    void SetFault(const CameraConfig& camera, const std::string& json);
    ExitStatus Erase(const CameraConfig& camera);
    ExitStatus SetBusy(const CameraConfig& camera, bool busy);
    ExitStatus ComplainOfUse(const CameraConfig& camera);

    const std::vector<CameraConfig> m_rig;
    const std::filesystem::path m_root;
    std::ostream& m_output;
    std::ostream& m_errors;
};

} // namespace Simulation
