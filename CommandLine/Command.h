// What the sub-commands of the batch tool share: exit statuses and how a sub-command registers itself.
#pragma once

#include <functional>
#include <string>

namespace CLI
{
class App;
}

namespace CommandLine
{

enum ExitStatus
{
    Done = 0,
    Failed = 1,     // the message is on standard error
    WrongUsage = 2, // so is this one
    Differences = 3 // verification found differences
};

// What the command line asked for. A sub-command sets the action while the line is parsed; it runs after that.
struct Request
{
    bool json = false;   // print one JSON document instead of text
    std::string adapter; // a name of AdapterNames; empty: as the camera's own names tell
    std::function<ExitStatus()> action;
};

// Each adds its sub-commands to the tool. The request outlives the app.
void AddCameras(CLI::App& app, Request& request);
void AddFeatures(CLI::App& app, Request& request); // features, set
void AddSets(CLI::App& app, Request& request);
void AddRead(CLI::App& app, Request& request);
void AddWrite(CLI::App& app, Request& request);
void AddSetStates(CLI::App& app, Request& request); // enable, disable, default, restore, erase
void AddGrab(CLI::App& app, Request& request);
void AddCrop(CLI::App& app, Request& request);
void AddDetect(CLI::App& app, Request& request);
void AddCommission(CLI::App& app, Request& request);
void AddEncode(CLI::App& app, Request& request);
void AddDecode(CLI::App& app, Request& request);

} // namespace CommandLine
