// A camera inside the test process, with files behind its features, that fails on command.
#include "ScriptedCamera.h"

#include <algorithm>

using Bytes = ScriptedFeature::Bytes;

ScriptedCamera::ScriptedCamera(const std::vector<std::string>& fileNames)
{
    ScriptedFeature& selector = Add("FileSelector", ZltFeatureDataEnumeration, std::string());
    for (const std::string& name : fileNames)
    {
        selector.AddEntry(name);
    }
    for (const char* name :
         {"FileOperationSelector", "FileOpenMode", "FileOperationStatus", "FileProcessStatus", "FileStatus"})
    {
        Add(name, ZltFeatureDataEnumeration, std::string());
    }
    for (const char* name : {"FileAccessOffset", "FileAccessLength", "FileOperationResult", "FileSize"})
    {
        ScriptedFeature& feature = Add(name, ZltFeatureDataInteger, std::int64_t{0});
        feature.minimum = std::int64_t{1};
        feature.maximum = LargestBlock;
    }
    Add("FileAccessBuffer", ZltFeatureDataRaw, Bytes());
    Add("FileOperationExecute", ZltFeatureDataCommand, false);

    // What the selected file decides is brought up to date before each call.
    for (const char* call : {"Get FileSize", "Range FileSize", "Get FileStatus", "Writable FileOperationExecute",
                             "Run FileOperationExecute"})
    {
        On(call, 0,
           [this, run = std::string(call) == "Run FileOperationExecute"]
           {
               if (run)
               {
                   execute();
               }
               const ScriptedFile& file = files[Get<std::string>("FileSelector")];
               (*this)["FileSize"].value = static_cast<std::int64_t>(file.content.size());
               (*this)["FileSize"].maximum = file.open ? LargestFile : 0;
               (*this)["FileStatus"].value = std::string(file.open ? "Open" : "Closed");
               (*this)["FileOperationExecute"].writable = file.deletable;
               return ZltErrorSuccess;
           });
    }
}

void ScriptedCamera::execute()
{
    ScriptedFile& file = files[Get<std::string>("FileSelector")];
    const std::string operation = Get<std::string>("FileOperationSelector");
    const auto length = Get<std::int64_t>("FileAccessLength");
    auto& offset = Get<std::int64_t>("FileAccessOffset");
    auto& buffer = Get<Bytes>("FileAccessBuffer");
    const auto size = static_cast<std::int64_t>(file.content.size());
    bool success = operation == "Open" || operation == "Delete" ? !file.open : file.open;
    if (operation == "Open")
    {
        success = success && file.modes.find(Get<std::string>("FileOpenMode")) != std::string::npos;
        file.open = file.open || success;
        offset = 0;
    }
    else if (operation == "Close")
    {
        file.open = false;
    }
    else if (success && operation == "Delete")
    {
        file.content.clear();
    }
    else if (success)
    {
        const std::int64_t moved = operation == "Write" ? length : std::clamp<std::int64_t>(size - offset, 0, length);
        if (operation == "Write")
        {
            file.content.resize(static_cast<std::size_t>(std::max(size, offset + length)));
            std::copy_n(buffer.begin(), length, file.content.begin() + offset);
        }
        else
        {
            buffer.assign(file.content.begin() + offset, file.content.begin() + offset + moved);
        }
        Get<std::int64_t>("FileOperationResult") = moved;
        offset += moved;
    }
    Get<std::string>("FileOperationStatus") = success ? "Success" : "Failure";
}

ScriptedFeature& ScriptedCamera::Add(const std::string& name, ZltFeatureDataType type,
                                     const ScriptedFeature::Value& value)
{
    return *features.emplace_back(std::make_shared<ScriptedFeature>(*this, name, type, value));
}

std::shared_ptr<ScriptedFeature> ScriptedCamera::featureNamed(const std::string& name)
{
    const auto found =
        std::find_if(features.begin(), features.end(), [&](const auto& feature) { return feature->name == name; });
    return found == features.end() ? nullptr : *found;
}

void ScriptedCamera::Remove(const std::string& name)
{
    features.erase(std::find(features.begin(), features.end(), featureNamed(name)));
}

ZltErrorType ScriptedCamera::GetFeatures(std::vector<ZltApi::FeaturePtr>& result)
{
    result.assign(features.begin(), features.end());
    return Call("Features");
}

ZltErrorType ScriptedCamera::GetFeatureByName(const char* name, ZltApi::FeaturePtr& feature)
{
    const ZltErrorType code = Call(std::string("Find ") + name);
    feature = code == ZltErrorSuccess && emptyHandles.count(name) == 0 ? featureNamed(name) : nullptr;
    return code == ZltErrorSuccess && !featureNamed(name) ? ZltErrorNotFound : code;
}

ZltErrorType ScriptedCamera::ReadMemory(std::uint64_t address, std::vector<unsigned char>& data)
{
    std::copy_n(memory.begin() + static_cast<std::ptrdiff_t>(address % 16), data.size(), data.begin());
    return Call("ReadMemory");
}

ZltErrorType ScriptedCamera::WriteMemory(std::uint64_t address, const std::vector<unsigned char>& data)
{
    std::copy(data.begin(), data.end(), memory.begin() + static_cast<std::ptrdiff_t>(address % 16));
    return Call("WriteMemory");
}
