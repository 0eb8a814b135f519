// Tests of a camera's files through the camera API.
#include "Failure.h"
#include "FileAccess.h"
#include "ScriptedCamera.h"
#include "ZltCamera.h"

#include <gtest/gtest.h>

#include <algorithm>

using Mode = KTR::DPC::FileInterface::FileOpenMode;
using Bytes = std::vector<unsigned char>;

namespace
{
const std::vector<std::string> Files = {"Other", "DefectPixelCorrectionUser"};
}

TEST(ZltCameraFiles, NeedAnOpenCameraWithFileAccess)
{
    const auto scripted = std::make_shared<ScriptedCamera>(Files);
    KTR::DPC::ZltCamera camera(scripted);
    EXPECT_TRUE(camera.IsFileAccessSupported());
    scripted->emptyHandles = {"FileSize"};
    EXPECT_EQ(FailureOf([&] { camera.GetFiles(); }), "File Access is not supported.");
    scripted->Fail("Features", 0);
    EXPECT_EQ(FailureOf([&] { camera.GetFiles(); }), "Camera must be opened to query File Access compatibility.");
}

TEST(ZltCameraFiles, KnowTheirLargestSizeIfTheCameraTellsIt)
{
    constexpr auto Largest = static_cast<std::uint64_t>(ScriptedCamera::LargestFile);
    const auto failingRange = [](ScriptedCamera& camera) { camera.Fail("Range FileSize", 0); };
    const auto negativeRange = [](ScriptedCamera& camera)
    { camera.On("Range FileSize", 0, [&camera] { camera["FileSize"].maximum = std::int64_t{-1}; }); };
    const auto failingMode = [](ScriptedCamera& camera) { camera.Fail("Set FileOpenMode", 1); };
    const struct
    {
        std::function<void(ScriptedCamera&)> fault;
        std::uint64_t other, user; // largest sizes
        bool open;                 // the file stays open
    } cases[] = {{[](ScriptedCamera&) {}, Largest, Largest, false},
                 {failingRange, 0, 0, true},
                 {negativeRange, 0, 0, false},
                 {failingMode, 0, Largest, false}};
    for (const auto& row : cases)
    {
        for (const std::string& name : Files)
        {
            const auto scripted = std::make_shared<ScriptedCamera>(Files);
            row.fault(*scripted);
            const auto file = KTR::DPC::ZltCamera(scripted).GetFile(name);
            EXPECT_EQ(file->GetSizeMax(), name == "Other" ? row.other : row.user);
            EXPECT_EQ(scripted->files[name].open, row.open);
            const auto& changes = scripted->changes;
            const bool wrote = std::count(changes.begin(), changes.end(), "Set FileOpenMode Write") > 0;
            EXPECT_EQ(wrote, row.other != row.user && name != "Other") << "the second way to the user's file";
            EXPECT_EQ(file->GetName(), name);
        }
    }
}

TEST(ZltCameraFiles, AreReadAndWritten)
{
    const auto scripted = std::make_shared<ScriptedCamera>(Files);
    KTR::DPC::ZltCamera camera(scripted);
    const auto file = camera.GetFiles().at(1);
    Bytes data;
    file->Open(Mode::Write);
    file->Write({1, 2});
    file->Append({3});
    EXPECT_EQ(file->GetSize(), 3U);
    EXPECT_TRUE(file->IsWritable());
    file->Close();
    file->Open(Mode::Read);
    file->Read(data, 2);
    EXPECT_EQ(data, (Bytes{1, 2}));
    file->Read(data, 0);
    EXPECT_EQ(data, (Bytes{1, 2, 3}));
    file->Close();
    file->Delete();
    EXPECT_EQ(file->GetSize(), 0U);

    scripted->Fail("Run FileOperationExecute");
    EXPECT_NE(FailureOf([&] { file->Open(Mode::Read); }), "");
    EXPECT_FALSE(file->IsOpen());
    scripted->changes.clear();
    file->Open(static_cast<Mode>(2));
    EXPECT_TRUE(file->IsOpen() && scripted->changes.empty()) << "an unknown mode must not reach the camera";
}

TEST(ZltCameraFilesDeathTest, AnUnknownNameEndsTheProcess)
{
    KTR::DPC::ZltCamera camera(std::make_shared<ScriptedCamera>(Files));
    EXPECT_DEATH(camera.GetFile("Missing"), "px != 0");
}
