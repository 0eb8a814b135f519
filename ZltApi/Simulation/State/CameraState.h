// What a simulated camera remembers on disk, and what other processes tell it through there.
#pragma once

#include "State/StateFile.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace Simulation
{

// What the control program sets.
struct ControlState
{
    bool plugged = true;
    std::optional<bool> covered; // absent: as the rig says
    std::optional<bool> busy;    // the same
};

// The folder of one camera. Holds no data itself: every call goes to the disk. A file that is missing or broken reads
// as if it had never been written; a write that fails throws std::runtime_error with a full sentence.
//
// - control.json: plugged, covered, busy
// - faults.json: fault rules
// - files/NAME: the camera's permanent files
// - nonvolatile.json: permanent feature values
// - loaded/NAME, settings.json: what lasts as long as the camera has power
// - restart.json: when a restart is over
class CameraState
{
public:
    using Values = std::map<std::string, std::string>;
    using Clock = std::chrono::system_clock; // restarts are seen by other processes

    explicit CameraState(std::filesystem::path folder) : m_folder(std::move(folder)) {}

    // ZLT_SIMULATION_STATE, else zlt-simulation in XDG_STATE_HOME, else in ~/.local/state.
    static std::filesystem::path DefaultRoot();

    const std::filesystem::path& Folder() const { return m_folder; }
    std::filesystem::path LockPath() const { return m_folder / "lock"; }

    ControlState Control() const;
    void ChangeControl(const std::function<void(ControlState&)>& change);

    // Faults that the control program has set; without the file the rig's own hold.
    std::filesystem::path FaultsPath() const;
    std::string FaultsText() const; // empty without the file
    void SetFaults(const std::string& json);

    std::optional<FileBytes> File(const std::string& name, std::uint64_t limit) const;
    void SetFile(const std::string& name, const FileBytes& bytes);
    std::optional<FileBytes> LoadedFile(const std::string& name, std::uint64_t limit) const;
    void SetLoadedFile(const std::string& name, const FileBytes& bytes);

    std::optional<Values> Settings() const; // none: the camera has had no power since
    void SetSettings(const Values& values);
    Values Nonvolatile() const;
    void SetNonvolatile(const Values& values);

    // Forgets what a camera without power forgets.
    void PowerDown();

    // Until then the camera is away. A restart further off than the longest possible one counts as over.
    void SetRestartEnd(Clock::time_point end);
    std::optional<Clock::time_point> RestartEnd(std::chrono::milliseconds longest) const;

    // Forgets everything but the lock.
    void Erase();

private:
    const std::filesystem::path m_folder;
};

} // namespace Simulation
