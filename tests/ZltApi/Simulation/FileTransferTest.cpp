// The file protocol of simulated cameras, feature by feature.
#include "TestRig.h"

#include "State/StateFile.h"

#include <gtest/gtest.h>

#include <tuple>

namespace Simulation
{

namespace
{

Bytes Numbered(std::size_t size)
{
    Bytes bytes(size);
    for (std::size_t i = 0; i < size; ++i)
    {
        bytes[i] = static_cast<unsigned char>(i * 7 + 1);
    }
    return bytes;
}

} // namespace

TEST(FileTransfer, SizesAroundTheBlock)
{
    TestRig rig;
    const auto camera = rig.Opened();
    EXPECT_EQ(Bytes(), ReadFile(camera, UserFile));
    for (const std::size_t size : {15U, 16U, 17U, 8192U})
    {
        EXPECT_EQ("Success", WriteFile(camera, Numbered(size)));
        EXPECT_EQ(Numbered(size), ReadFile(camera, UserFile)) << size;
    }
    EXPECT_EQ("InvalidParameter", WriteFile(camera, Numbered(8193))) << "beyond the largest size";
    EXPECT_EQ(ZltErrorInvalidValue, Set(camera, "FileAccessBuffer", Bytes(17)));
    EXPECT_EQ(ZltErrorInvalidValue, Set(camera, "FileAccessLength", std::int64_t{17}));
}

TEST(FileTransfer, OperationsInEachState)
{
    // What an operation says while the file is closed, open for reading, open for writing.
    const std::tuple<const char*, const char*, std::vector<std::string>> cases[] = {
        {UserFile, "Open", {"Success", "FileIsOpen", "FileIsOpen"}},
        {UserFile, "Read", {"FileNotOpen", "Success", "Success"}},
        {UserFile, "Write", {"FileNotOpen", "FileProtected", "Success"}},
        {UserFile, "Delete", {"Success", "FileIsOpen", "FileIsOpen"}},
        {UserFile, "Close", {"FileNotOpen", "Success", "Success"}},
        {PresetFile, "Read", {"FileNotOpen", "Success"}},
        {PresetFile, "Write", {"FileNotOpen", "FileProtected"}},
        {PresetFile, "Delete", {"-6", "-6"}},
    };
    TestRig rig;
    const auto camera = rig.Opened();
    for (const auto& [file, operation, results] : cases)
    {
        for (std::size_t mode = 0; mode < results.size(); ++mode)
        {
            Execute(camera, file, "Close");
            EXPECT_TRUE(mode == 0 || OpenFile(camera, file, mode == 1 ? "Read" : "Write") == "Success");
            EXPECT_EQ(mode == 0 ? "Closed" : "Open", Get<std::string>(camera, "FileStatus"));
            EXPECT_EQ(results[mode], Execute(camera, file, operation)) << file << ' ' << operation << ' ' << mode;
        }
    }
    Set(camera, "FileOperationSelector", "Delete");
    EXPECT_FALSE(IsWritable(camera, "FileOperationExecute")) << "how a host learns that a file is read-only";
    Set(camera, "FileSelector", UserFile);
    EXPECT_TRUE(IsWritable(camera, "FileOperationExecute"));
}

TEST(FileTransfer, ContentBecomesPermanentWhenClosed)
{
    TestRig rig;
    const auto stored = [&] { return ReadStateFile(rig.StateFolder() / "files" / UserFile, 10'000).value_or(Bytes()); };
    auto camera = rig.Opened();
    ASSERT_EQ("Success", WriteFile(camera, Numbered(40)));
    ASSERT_EQ(Numbered(40), stored());

    EXPECT_EQ("Success", OpenFile(camera, UserFile, "Write"));
    EXPECT_EQ("Success", Execute(camera, UserFile, "Close"));
    EXPECT_EQ(Numbered(40), stored()) << "opened for writing, but nothing written";

    EXPECT_EQ("Success", OpenFile(camera, UserFile, "Write"));
    EXPECT_EQ("InvalidParameter", WriteBlocks(camera, UserFile, {1}, 41)) << "a hole";
    EXPECT_EQ("Success", WriteBlocks(camera, UserFile, {9, 8}, 40));
    EXPECT_EQ("Success", Execute(camera, UserFile, "Close"));
    Bytes appended = Numbered(40);
    appended.insert(appended.end(), {9, 8});
    EXPECT_EQ(appended, stored());

    EXPECT_EQ("Success", WriteFile(camera, {5}));
    EXPECT_EQ(Bytes{5}, stored()) << "a block at the start drops the old content";

    // Nothing of a write that is not closed stays: neither after closing the camera nor after losing it.
    ASSERT_EQ("Success", OpenFile(camera, UserFile, "Write"));
    ASSERT_EQ("Success", WriteBlocks(camera, UserFile, Numbered(30)));
    EXPECT_EQ(ZltErrorSuccess, camera->Close());
    EXPECT_EQ(ZltErrorSuccess, camera->Open(ZltApi::AccessModeFull));
    EXPECT_EQ(Bytes{5}, ReadFile(camera, UserFile));
    ASSERT_EQ("Success", OpenFile(camera, UserFile, "Write"));
    ASSERT_EQ("Success", WriteBlocks(camera, UserFile, Numbered(30)));
    ASSERT_EQ(0, rig.Control({"unplug", CameraId}));
    ASSERT_TRUE(rig.events.Next(ZltApi::UpdateTriggerUnplugged));
    EXPECT_EQ(Bytes{5}, stored());
}

} // namespace Simulation
