// cameras: the cameras that are there, one a line.

#include "CameraSession.h"
#include "Command.h"
#include "JsonOutput.h"

#include "DpcAdapterManager.h"
#include "ZltCamera.h"

#include <CLI/CLI.hpp>
#include <boost/make_shared.hpp>
#include <nlohmann/json.hpp>

#include <iostream>

namespace CommandLine
{

namespace
{

struct CameraRow
{
    std::string id;
    std::string model;
    std::string serial;
    std::string family = "-"; // a camera in use does not tell
    std::string dpc = "unknown";
    std::string access = "in-use";
};

CameraRow Describe(const ZltApi::CameraPtr& camera)
{
    CameraRow row;
    camera->GetID(row.id);
    camera->GetModel(row.model);
    camera->GetSerialNumber(row.serial);
    // Family and correction can only be learnt from an open camera.
    if (camera->Open(ZltApi::AccessModeFull) != ZltErrorSuccess)
    {
        return row;
    }
    row.access = "free";
    const boost::shared_ptr<KTR::DPC::CameraAbstraction> features = boost::make_shared<KTR::DPC::ZltCamera>(camera);
    row.family = FamilyName(*features);
    if (row.family.empty())
    {
        row.family = "-";
    }
    row.dpc = KTR::DPC::DpcAdapterManager::IsCompatible(features) ? "dpc" : "no-dpc";
    camera->Close();
    return row;
}

ExitStatus List(const Request& request)
{
    ApiSession session;
    nlohmann::ordered_json document = nlohmann::ordered_json::array();
    for (const ZltApi::CameraPtr& camera : session.Api().GetCameraList())
    {
        const CameraRow row = Describe(camera);
        if (request.json)
        {
            document.push_back({{"id", row.id},
                                {"model", row.model},
                                {"serial", row.serial},
                                {"family", row.family},
                                {"dpc", row.dpc},
                                {"access", row.access}});
        }
        else
        {
            std::cout << row.id << '\t' << row.model << '\t' << row.serial << '\t' << row.family << '\t' << row.dpc
                      << '\t' << row.access << '\n';
        }
    }
    if (request.json)
    {
        PrintJson(document);
    }
    return Done;
}

} // namespace

void AddCameras(CLI::App& app, Request& request)
{
    CLI::App* command =
        app.add_subcommand("cameras", "List the cameras: id, model, serial, family, dpc or no-dpc, free or in-use");
    command->callback([&request] { request.action = [&request] { return List(request); }; });
}

} // namespace CommandLine
