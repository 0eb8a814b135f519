// enable, disable, default, restore and erase: what can be done to a correction set as a whole.

#include "CameraSession.h"
#include "Command.h"

#include "Exception.h"

#include <CLI/CLI.hpp>

namespace CommandLine
{

namespace
{

using KTR::DPC::CorrectionSet;
using KTR::DPC::DpcAdapter;

struct SetAction
{
    const char* name;
    const char* description;
    void (*run)(DpcAdapter& adapter, boost::shared_ptr<CorrectionSet> set);
};

constexpr SetAction Actions[] = {
    {"enable", "Switch the correction on with this set",
     [](DpcAdapter& adapter, boost::shared_ptr<CorrectionSet> set) { adapter.SetCorrectionSetEnabled(set, true); }},
    {"disable", "Switch the correction off",
     [](DpcAdapter& adapter, boost::shared_ptr<CorrectionSet> set) { adapter.SetCorrectionSetEnabled(set, false); }},
    {"default", "Let the camera apply this set after start-up",
     [](DpcAdapter& adapter, boost::shared_ptr<CorrectionSet> set) { adapter.SetDefaultCorrectionSet(set); }},
    {"restore", "Bring back the factory content of this set",
     [](DpcAdapter& adapter, boost::shared_ptr<CorrectionSet> set) { adapter.RestoreFactorySettings(set); }},
    {"erase", "Empty this set",
     [](DpcAdapter& adapter, boost::shared_ptr<CorrectionSet> set) { adapter.EraseCorrectionSet(set); }},
};

struct Options
{
    std::string camera;
    std::string set;
};

ExitStatus Run(const SetAction& action, const Options& options, const Request& request)
{
    CameraSession session(options.camera, request.adapter);
    const boost::shared_ptr<DpcAdapter> adapter = session.Adapter();
    action.run(*adapter, FindSet(adapter->GetAvailableCorrectionSets(), options.set));
    return Done;
}

} // namespace

void AddSetStates(CLI::App& app, Request& request)
{
    for (const SetAction& action : Actions)
    {
        auto options = std::make_shared<Options>();
        CLI::App* command = app.add_subcommand(action.name, action.description);
        command->add_option("CAMERA", options->camera, "Camera ID")->required();
        command->add_option("SET", options->set, "Correction set")->required();
        command->callback(
            [options, &action, &request]
            { request.action = [options, &action, &request] { return Run(action, *options, request); }; });
    }
}

} // namespace CommandLine
