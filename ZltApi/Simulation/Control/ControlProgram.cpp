// Listing, covering, plugging, erasing and disturbing simulated cameras.
#include "Control/ControlProgram.h"

#include "Sensor/SensorFaults.h"
#include "State/CameraState.h"
#include "State/FileLock.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <exception>
#include <ostream>
#include <stdexcept>
#include <utility>

namespace Simulation
{

namespace
{

const char* Presence(const CameraState& state, const ControlState& control)
{
    if (!control.plugged)
    {
        return "unplugged";
    }
    return state.RestartEnd(LongestRestart) ? "restarting" : "plugged";
}

} // namespace

ControlProgram::ControlProgram(std::vector<CameraConfig> rig, std::filesystem::path root, std::ostream& output,
                               std::ostream& errors)
    : m_rig(std::move(rig)),
      m_root(std::move(root)),
      m_output(output),
      m_errors(errors)
{
}

ControlProgram::ExitStatus ControlProgram::Run(const std::vector<std::string>& arguments)
{
    try
    {
        return Dispatch(arguments);
    }
    catch (const std::exception& error)
    {
        m_errors << error.what() << '\n';
        return Failed;
    }
}

ControlProgram::ExitStatus ControlProgram::Usage()
{
    m_errors
        << "Usage: zlt-simulation-ctl list | defects ID | cover ID on|off | busy ID on|off | unplug ID | plug ID | "
           "erase ID | fault ID clear|JSON\n";
    return WrongUsage;
}

ControlProgram::ExitStatus ControlProgram::Dispatch(const std::vector<std::string>& arguments)
{
    const std::string command = arguments.empty() ? std::string() : arguments[0];
    if (command == "list" && arguments.size() == 1)
    {
        return List();
    }
    const bool isSwitch = command == "cover" || command == "busy";
    const bool takesValue = isSwitch || command == "fault";
    const bool isKnown =
        takesValue || command == "defects" || command == "unplug" || command == "plug" || command == "erase";
    if (!isKnown || arguments.size() != (takesValue ? 3U : 2U))
    {
        return Usage();
    }
    const auto camera = std::find_if(m_rig.begin(), m_rig.end(),
                                     [&](const CameraConfig& candidate) { return candidate.id == arguments[1]; });
    if (camera == m_rig.end())
    {
        m_errors << "There is no simulated camera with the id \"" << arguments[1] << "\".\n";
        return WrongUsage;
    }
    if (command == "defects")
    {
        return Defects(*camera);
    }
    if (command == "erase")
    {
        return Erase(*camera);
    }
    if (isSwitch && arguments[2] != "on" && arguments[2] != "off")
    {
        return Usage();
    }
    if (command == "busy")
    {
        return SetBusy(*camera, arguments[2] == "on");
    }
    if (command == "cover")
    {
        CameraState(m_root / camera->id)
            .ChangeControl([&](ControlState& control) { control.covered = arguments[2] == "on"; });
    }
    else if (command == "fault")
    {
        SetFault(*camera, arguments[2]);
    }
    else
    {
        Plug(*camera, command == "plug");
    }
    return Done;
}

ControlProgram::ExitStatus ControlProgram::List()
{
    for (const CameraConfig& camera : m_rig)
    {
        const CameraState state(m_root / camera.id);
        const ControlState control = state.Control();
        m_output << camera.id << '\t' << camera.model << '\t' << Presence(state, control) << '\t'
                 << (control.covered.value_or(camera.covered) ? "covered" : "uncovered") << '\t'
                 << (control.busy.value_or(camera.busy) || FileLock::IsTaken(state.LockPath()) ? "in-use" : "free")
                 << '\n';
    }
    return Done;
}

ControlProgram::ExitStatus ControlProgram::Defects(const CameraConfig& camera)
{
    const SensorConfig& sensor = camera.sensor;
    if (!sensor.darkFrameFile.empty())
    {
        m_errors << "The sensor of " << camera.id << " shows a recorded dark frame.\n";
        return Failed;
    }
    for (const PixelFault& fault : SeedFaults(sensor.width, sensor.height, sensor.seed, sensor.longestRun))
    {
        m_output << fault.x << '\t' << fault.y << '\t' << (fault.kind == FaultKind::Hot ? "hot" : "dead") << '\t'
                 << fault.signal << '\n';
    }
    return Done;
}

void ControlProgram::Plug(const CameraConfig& camera, bool plugged)
{
    CameraState state(m_root / camera.id);
    const bool wasPlugged = state.Control().plugged;
    if (wasPlugged && plugged)
    {
        return;
    }
    if (plugged)
    {
        state.PowerDown(); // a host may have written something after the unplugging
    }
    state.ChangeControl([&](ControlState& control) { control.plugged = plugged; });
    if (!plugged)
    {
        state.PowerDown();
    }
}

void ControlProgram::SetFault(const CameraConfig& camera, const std::string& json)
{
    CameraState state(m_root / camera.id);
    nlohmann::json faults = nlohmann::json::array();
    if (json != "clear")
    {
        ParseFaultRules(json); // refuses what the camera would not understand
        const nlohmann::json standing = nlohmann::json::parse(state.FaultsText(), nullptr, false);
        const nlohmann::json added = nlohmann::json::parse(json);
        for (const nlohmann::json& list : {standing, added})
        {
            if (list.is_array())
            {
                faults.insert(faults.end(), list.begin(), list.end());
            }
            else if (list.is_object())
            {
                faults.push_back(list);
            }
        }
    }
    state.SetFaults(faults.dump());
}

ControlProgram::ExitStatus ControlProgram::Erase(const CameraConfig& camera)
{
    CameraState state(m_root / camera.id);
    FileLock lock(state.LockPath());
    if (!lock.TryAcquire())
    {
        return ComplainOfUse(camera);
    }
    state.Erase();
    return Done;
}

ControlProgram::ExitStatus ControlProgram::SetBusy(const CameraConfig& camera, bool busy)
{
    CameraState state(m_root / camera.id);
    FileLock lock(state.LockPath()); // nobody opens the camera meanwhile
    if (busy && !lock.TryAcquire())
    {
        return ComplainOfUse(camera);
    }
    state.ChangeControl([busy](ControlState& control) { control.busy = busy; });
    return Done;
}

ControlProgram::ExitStatus ControlProgram::ComplainOfUse(const CameraConfig& camera)
{
    m_errors << "The simulated camera " << camera.id << " is in use.\n";
    return Failed;
}

} // namespace Simulation
