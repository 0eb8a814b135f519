// The files in a camera's state folder.
#include "State/CameraState.h"

#include "State/FileLock.h"

#include <nlohmann/json.hpp>

#include <cstdlib>
#include <stdexcept>
#include <system_error>

namespace Simulation
{

namespace
{

constexpr std::uint64_t LargestJson = 1U << 20;

std::string ReadText(const std::filesystem::path& path)
{
    const auto bytes = ReadStateFile(path, LargestJson);
    return bytes ? std::string(bytes->begin(), bytes->end()) : std::string();
}

// An object in every case; an empty one when there is no other.
nlohmann::json ReadObject(const std::filesystem::path& path)
{
    nlohmann::json json = nlohmann::json::parse(ReadText(path), nullptr, false);
    return json.is_object() ? json : nlohmann::json::object();
}

CameraState::Values ReadValues(const nlohmann::json& json)
{
    CameraState::Values values;
    for (const auto& item : json.items())
    {
        if (item.value().is_string())
        {
            values[item.key()] = item.value().get<std::string>();
        }
    }
    return values;
}

std::optional<bool> ReadFlag(const nlohmann::json& json, const char* key)
{
    const auto found = json.find(key);
    return found != json.end() && found->is_boolean() ? std::optional(found->get<bool>()) : std::nullopt;
}

std::string Environment(const char* name)
{
    const char* const value = std::getenv(name);
    return value ? value : "";
}

} // namespace

std::filesystem::path CameraState::DefaultRoot()
{
    if (const std::string root = Environment("ZLT_SIMULATION_STATE"); !root.empty())
    {
        return root;
    }
    if (const std::string stateHome = Environment("XDG_STATE_HOME"); !stateHome.empty())
    {
        return std::filesystem::path(stateHome) / "zlt-simulation";
    }
    return std::filesystem::path(Environment("HOME")) / ".local" / "state" / "zlt-simulation";
}

ControlState CameraState::Control() const
{
    const nlohmann::json json = ReadObject(m_folder / "control.json");
    return {ReadFlag(json, "plugged").value_or(true), ReadFlag(json, "covered"), ReadFlag(json, "busy")};
}

void CameraState::ChangeControl(const std::function<void(ControlState&)>& change)
{
    FileLock lock(m_folder / ".control-lock");
    if (!lock.Acquire())
    {
        throw std::runtime_error("The folder " + m_folder.string() + " cannot be written.");
    }
    ControlState control = Control();
    change(control);
    nlohmann::json json = {{"plugged", control.plugged}};
    if (control.covered)
    {
        json["covered"] = *control.covered;
    }
    if (control.busy)
    {
        json["busy"] = *control.busy;
    }
    ReplaceStateFile(m_folder / "control.json", json.dump());
}

std::filesystem::path CameraState::FaultsPath() const
{
    return m_folder / "faults.json";
}

std::string CameraState::FaultsText() const
{
    return ReadText(FaultsPath());
}

void CameraState::SetFaults(const std::string& json)
{
    ReplaceStateFile(FaultsPath(), json);
}

std::optional<FileBytes> CameraState::File(const std::string& name, std::uint64_t limit) const
{
    return ReadStateFile(m_folder / "files" / name, limit);
}

void CameraState::SetFile(const std::string& name, const FileBytes& bytes)
{
    ReplaceStateFile(m_folder / "files" / name, bytes);
}

std::optional<FileBytes> CameraState::LoadedFile(const std::string& name, std::uint64_t limit) const
{
    return ReadStateFile(m_folder / "loaded" / name, limit);
}

void CameraState::SetLoadedFile(const std::string& name, const FileBytes& bytes)
{
    ReplaceStateFile(m_folder / "loaded" / name, bytes);
}

std::optional<CameraState::Values> CameraState::Settings() const
{
    const nlohmann::json json = nlohmann::json::parse(ReadText(m_folder / "settings.json"), nullptr, false);
    return json.is_object() ? std::optional(ReadValues(json)) : std::nullopt;
}

void CameraState::SetSettings(const Values& values)
{
    ReplaceStateFile(m_folder / "settings.json", nlohmann::json(values).dump());
}

CameraState::Values CameraState::Nonvolatile() const
{
    return ReadValues(ReadObject(m_folder / "nonvolatile.json"));
}

void CameraState::SetNonvolatile(const Values& values)
{
    ReplaceStateFile(m_folder / "nonvolatile.json", nlohmann::json(values).dump());
}

void CameraState::PowerDown()
{
    std::error_code ignored;
    std::filesystem::remove(m_folder / "settings.json", ignored);
    std::filesystem::remove_all(m_folder / "loaded", ignored);
}

void CameraState::SetRestartEnd(Clock::time_point end)
{
    const auto sinceEpoch = std::chrono::duration_cast<std::chrono::milliseconds>(end.time_since_epoch());
    ReplaceStateFile(m_folder / "restart.json", nlohmann::json{{"until", sinceEpoch.count()}}.dump());
}

std::optional<CameraState::Clock::time_point> CameraState::RestartEnd(std::chrono::milliseconds longest) const
{
    const nlohmann::json json = ReadObject(m_folder / "restart.json");
    const auto until = json.find("until");
    if (until == json.end() || !until->is_number_integer())
    {
        return std::nullopt;
    }
    const auto now = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now().time_since_epoch());
    const std::int64_t end = until->get<std::int64_t>();
    if (end <= now.count() || end > now.count() + longest.count())
    {
        return std::nullopt;
    }
    return Clock::time_point(std::chrono::milliseconds(end));
}

void CameraState::Erase()
{
    for (const auto& entry : std::filesystem::directory_iterator(m_folder))
    {
        if (entry.path() != LockPath())
        {
            std::filesystem::remove_all(entry.path());
        }
    }
}

} // namespace Simulation
