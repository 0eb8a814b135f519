// features and set: read and write the features of a camera.

#include "CameraSession.h"
#include "Command.h"
#include "JsonOutput.h"
#include "SettingsKeeper.h"

#include "Exception.h"

#include <CLI/CLI.hpp>
#include <QString>
#include <nlohmann/json.hpp>

#include <iostream>
#include <map>

namespace CommandLine
{

namespace
{

using KTR::DPC::CameraAbstraction;
using KTR::DPC::FeatureType;

struct Options
{
    std::string camera;
    std::vector<std::string> names;
    std::string name;
    std::string value;
};

struct FeatureRow
{
    std::string name;
    std::string type = "unknown";
    std::string access = "--"; // "rw", "r-", "-w" or "--"
    std::string value;
    std::string limits; // "minimum..maximum" of a number, the entries of an enumeration
};

std::string TypeName(FeatureType type)
{
    static const std::map<FeatureType, std::string> names = {
        {FeatureType::Unknown, "unknown"},         {FeatureType::Integer, "integer"}, {FeatureType::Float, "float"},
        {FeatureType::Enumeration, "enumeration"}, {FeatureType::String, "string"},   {FeatureType::Boolean, "boolean"},
        {FeatureType::Command, "command"},         {FeatureType::Raw, "raw"},         {FeatureType::None, "none"}};
    return names.at(type);
}

std::string Limits(CameraAbstraction& camera, const std::string& name, FeatureType type)
{
    if (type == FeatureType::Integer)
    {
        return std::to_string(camera.GetFeatureIntegerMin(name)) + ".." +
               std::to_string(camera.GetFeatureIntegerMax(name));
    }
    if (type == FeatureType::Float)
    {
        return (QString::number(camera.GetFeatureDoubleMin(name)) + ".." +
                QString::number(camera.GetFeatureDoubleMax(name)))
            .toStdString();
    }
    std::string entries;
    if (type == FeatureType::Enumeration)
    {
        for (const std::string& entry : camera.GetFeatureEnumValues(name))
        {
            if (camera.IsEnumEntryAvailable(name, entry))
            {
                entries += (entries.empty() ? "" : ",") + entry;
            }
        }
    }
    return entries;
}

void Describe(CameraAbstraction& camera, FeatureRow& row)
{
    const std::string& name = row.name;
    const FeatureType type = camera.GetFeatureType(name);
    row.type = TypeName(type);
    const bool readable = camera.IsFeatureReadable(name);
    row.access = std::string(readable ? "r" : "-") + (camera.IsFeatureWritable(name) ? "w" : "-");
    if (readable)
    {
        row.value = FeatureText(camera, name);
        row.limits = Limits(camera, name, type);
    }
}

ExitStatus Print(const Options& options, const Request& request)
{
    CameraSession session(options.camera);
    const boost::shared_ptr<CameraAbstraction> camera = session.Abstraction();
    nlohmann::ordered_json document = nlohmann::ordered_json::array();
    const bool isWhole = options.names.empty();
    for (const std::string& name : isWhole ? camera->GetAvailableFeatures() : options.names)
    {
        FeatureRow row;
        row.name = name;
        try
        {
            Describe(*camera, row);
        }
        catch (const KTR::System::Exception& failure)
        {
            if (!isWhole)
            {
                throw;
            }
            // One feature that cannot be read is no reason to keep back the others.
            std::cerr << failure.ToString() << '\n';
        }
        if (request.json)
        {
            document.push_back({{"name", row.name},
                                {"type", row.type},
                                {"access", row.access},
                                {"value", row.value},
                                {"limits", row.limits}});
        }
        else
        {
            std::cout << row.name << '\t' << row.value << '\t' << row.type << '\t' << row.access << '\t' << row.limits
                      << '\n';
        }
    }
    if (request.json)
    {
        PrintJson(document);
    }
    return Done;
}

ExitStatus Set(const Options& options)
{
    CameraSession session(options.camera);
    SetFeatureText(*session.Abstraction(), options.name, options.value);
    return Done;
}

} // namespace

void AddFeatures(CLI::App& app, Request& request)
{
    auto options = std::make_shared<Options>();
    CLI::App* features = app.add_subcommand("features", "Print features: name, value, type, access, range or entries");
    features->add_option("CAMERA", options->camera, "Camera ID")->required();
    features->add_option("NAME", options->names, "Features to print; all without one");
    features->callback([options, &request]
                       { request.action = [options, &request] { return Print(*options, request); }; });

    CLI::App* set = app.add_subcommand("set", "Write a feature");
    set->add_option("CAMERA", options->camera, "Camera ID")->required();
    set->add_option("NAME", options->name, "Feature")->required();
    set->add_option("VALUE", options->value, "Number, true or false, entry or text; any word for a command")
        ->required();
    set->callback([options, &request] { request.action = [options] { return Set(*options); }; });
}

} // namespace CommandLine
