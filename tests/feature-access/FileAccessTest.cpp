// Tests of the file access features, the file list and the file objects.
#include "Failure.h"
#include "FeatureCollection.h"
#include "FileImpl.h"
#include "Logger.h"
#include "ScriptedCamera.h"

#include <boost/make_shared.hpp>
#include <gmock/gmock.h>

using KTR::FeatureHelper::FileAccess::FileAccess;
using Collection = FileAccess::FeatureCollection;
using Names = std::vector<std::string>;

// Each feature missing, found without a handle, without a type, and of another type.
TEST(FeatureCollection, TellsWhatIsWrongWithAFeature)
{
    const std::string texts[] = {"Could not get feature \"%\". (Error code: -13)", "Could not access feature \"%\".",
                                 "Could not get data type of feature \"%\". (Error code: -13)",
                                 "Data type of feature \"%\" is unexpected."};
    const Names names = {"FileSelector",     "FileOperationSelector", "FileOperationExecute",
                         "FileOpenMode",     "FileAccessBuffer",      "FileAccessOffset",
                         "FileAccessLength", "FileOperationStatus",   "FileOperationResult",
                         "FileSize",         "FileProcessStatus",     "FileStatus"};
    for (unsigned index = 0; index < 4 * names.size(); ++index)
    {
        const std::string& name = names[index / 4];
        const bool optional = index / 4 >= 10;
        const auto camera = std::make_shared<ScriptedCamera>(Names{});
        const ZltFeatureDataType type = (*camera)[name].type;
        const std::function<void()> faults[] = {
            [&] { camera->Fail("Find " + name, 0); }, [&] { camera->emptyHandles = {name}; },
            [&] { camera->Fail("Type " + name, 0); }, [&] { (*camera)[name].type = ZltFeatureDataString; }};
        EXPECT_TRUE(FileAccess::IsCompatible(camera));
        faults[index % 4]();
        std::string text = texts[index % 4];
        text = optional && index % 4 < 2 ? "" : text.replace(text.find('%'), 1, name);
        EXPECT_EQ(FailureOf([&] { FileAccess access(camera); }), text);
        EXPECT_EQ(Collection::CheckFeature(camera, name, type, optional), text.empty()) << name;
        EXPECT_EQ(FileAccess::IsCompatible(camera), optional) << name;
    }
    const auto camera = std::make_shared<ScriptedCamera>(Names{});
    const auto none = ZltFeatureDataUnknown;
    EXPECT_EQ(FailureOf([&] { FileAccess access(nullptr); }), "No camera passed.");
    EXPECT_EQ(FailureOf([&] { FileAccess::IsCompatible(nullptr); }), "No camera passed.");
    EXPECT_EQ(FailureOf([&] { Collection::GetFeature(camera, "FileSize", none, true); }), "Invalid data type passed.");
    EXPECT_EQ(FailureOf([&] { Collection::CheckFeature(camera, "FileSize", none, true); }),
              "Invalid data type passed.");
}

TEST(FileAccess, ListsTheAvailableFilesAsLongAsTheirNamesAreSound)
{
    const auto camera = std::make_shared<ScriptedCamera>(Names{"A", "B", "C"});
    auto& entries = (*camera)["FileSelector"].entries;
    entries[1]->available = false;
    FileAccess access(camera);
    const auto list = [&] { access.GetFiles(); };
    const auto pick = [&] { access.GetFile("C"); };
    const auto files = access.GetFiles();
    ASSERT_EQ(files.size(), 2U);
    EXPECT_EQ(files[0]->GetName() + files[1]->GetName(), "AC");
    EXPECT_EQ(access.GetFile("B")->GetName(), "B") << "availability does not count for a file by name";
    EXPECT_FALSE(access.GetFile("D"));
    EXPECT_FALSE(access.GetFile(""));
    // The call, its number that fails when files are listed and when one is picked, and the text.
    const std::tuple<const char*, unsigned, unsigned, std::string> failures[] = {
        {"Entries FileSelector", 1, 1, "Could not get file name entries. (Error code: -13)"},
        {"EntryName", 3, 3, "Could not get file entry name. (Error code: -13)"},
        {"Available FileSelector", 3, 1, "Could not get file entry availability. (Error code: -13)"}};
    for (const auto& [call, listing, picking, text] : failures)
    {
        camera->Fail(call, listing);
        EXPECT_EQ(FailureOf(list), text);
        camera->Fail(call, picking);
        EXPECT_EQ(FailureOf(pick), text);
    }
    entries[0]->name = "C";
    EXPECT_EQ(FailureOf(list), "Duplicate file names found.");
    EXPECT_EQ(FailureOf(pick), "Duplicate file names found.");
    entries[0]->available = false; // found for both entries of this name
    EXPECT_EQ(FailureOf(list), "");
    entries[0]->name.clear();
    EXPECT_EQ(FailureOf(list), "Invalid file name found.");
    EXPECT_EQ(FailureOf([&] { access.GetFile(""); }), "Invalid file name found.");
}

TEST(FileAccess, SharesAFileObjectWhileItLives)
{
    const auto camera = std::make_shared<ScriptedCamera>(Names{"A", "B"});
    FileAccess access(camera);
    bool& open = camera->files["A"].open;
    auto files = access.GetFiles();
    open = true;
    EXPECT_EQ(access.GetFiles(), files);
    EXPECT_EQ(access.GetFile("B"), files[1]);
    EXPECT_TRUE(open) << "an object that lives looks at the camera only once";
    files.clear();
    files = access.GetFiles();
    EXPECT_FALSE(open) << "a new object closes what was left open";
    files[0]->Open("Read");
    files.clear();
    EXPECT_FALSE(open) << "the end of an object closes its file";

    open = true;
    camera->Fail("Get FileStatus", 1);
    access.GetFiles();
    EXPECT_TRUE(open) << "an unreadable status counts as closed";
    camera->Fail("Run FileOperationExecute", 1);
    EXPECT_EQ(FailureOf([&] { access.GetFiles(); }), "Could not execute file operation. (Error code: -13)");
    open = true;
    camera->emptyHandles = {"FileStatus"};
    FileAccess(camera).GetFiles();
    EXPECT_TRUE(open) << "without a status nothing is closed";
}

TEST(FileAccess, FindsOutOnceWhetherAFileIsWritable)
{
    for (const char* failing : {"", "Writable FileOperationExecute", "Set FileOperationSelector"})
    {
        const auto camera = std::make_shared<ScriptedCamera>(Names{"A", "B"});
        bool& deletable = (*camera)["FileOperationExecute"].writable;
        camera->Fail(failing);
        FileAccess access(camera);
        const auto file = access.GetFile("A");
        deletable = false;
        EXPECT_EQ(file->IsWritable(), *failing == '\0') << failing;
        EXPECT_FALSE(access.GetFile("B")->IsWritable());
    }
}

TEST(FileImpl, FailsForWhatOnlyAProgrammerCanDo)
{
    const auto camera = std::make_shared<ScriptedCamera>(Names{"A"});
    FileAccess::FileImpl file(boost::make_shared<Collection>(camera), "A");
    file.Open("Read");
    EXPECT_EQ(FailureOf([&] { file.IsWritableImpl(); }), "Cannot query IsWritable if file is opened (Error code: -30)");
    EXPECT_EQ(FailureOf([] { FileAccess::FileImpl({}, "A"); }), "No file access feature collection passed.");
}
