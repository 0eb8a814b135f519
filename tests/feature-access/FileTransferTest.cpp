// Tests of opening, closing, reading and writing a camera file.
#include "Failure.h"
#include "FileAccess.h"
#include "ScriptedCamera.h"

#include <boost/make_shared.hpp>
#include <gmock/gmock.h>

#include <numeric>

using namespace KTR::FeatureHelper::FileAccess;
using testing::ElementsAre;
using Bytes = std::vector<unsigned char>;
using Value = ScriptedFeature::Value;

namespace
{

const std::string Code = " (Error code: -13)";

struct Observer : TaskObserver
{
    void ReportProgress(double value) override { progress.push_back(value); }
    void ReportMessage(const std::string&) override {}
    bool IsAborted() override { return blocksToAbort-- == 0; }
    std::vector<double> progress;
    int blocksToAbort = -1;
};

Bytes counting(std::size_t size, unsigned char first = 1)
{
    Bytes bytes(size);
    std::iota(bytes.begin(), bytes.end(), first);
    return bytes;
}

// A file that is open, so that it takes and gives.
class FileTransfer : public testing::Test
{
protected:
    FileTransfer()
    {
        file->Open("Write");
        camera->changes.clear();
    }
    // The n-th call reads a wrong value; its feature is the call's last word.
    void tamper(const std::string& call, unsigned n, const Value& value)
    {
        camera->On(call, n, [=] { (*camera)[call.substr(call.find(' ') + 1)].value = value; });
    }

    std::shared_ptr<ScriptedCamera> camera = std::make_shared<ScriptedCamera>(std::vector<std::string>{"A", "B"});
    FileAccess access{camera};
    boost::shared_ptr<File> file = access.GetFile("A");
    Bytes& content = camera->files["A"].content;
    boost::shared_ptr<Observer> observer = boost::make_shared<Observer>();
};

} // namespace

TEST_F(FileTransfer, MovesFilesOfAllSizesRoundTheBlockSize)
{
    for (const std::size_t size : {1U, 15U, 16U, 17U, 32U})
    {
        content.clear();
        camera->changes.clear();
        file->Write(counting(size), {});
        const auto blocks = std::count(camera->changes.begin(), camera->changes.end(), "Run FileOperationExecute");
        EXPECT_EQ(blocks, (size + 15) / 16);
        file->Append(counting(size, 100), {});
        EXPECT_EQ(file->GetSize(), 2 * size);
        Bytes whole = counting(size);
        Bytes read(99);
        file->Read(read, size, {});
        EXPECT_EQ(read, whole);
        const Bytes end = counting(size, 100);
        whole.insert(whole.end(), end.begin(), end.end());
        EXPECT_EQ(file->Read({}), whole);
    }
    file->Close();
    file->Delete();
    EXPECT_TRUE(content.empty());
}

TEST_F(FileTransfer, EmptyTransfersMoveNothing)
{
    (*camera)["FileAccessOffset"].value = std::int64_t{9};
    unsigned long size = 0;
    Bytes kept = {7};
    file->Write(nullptr, 0, observer);
    file->Append(Bytes(), observer);
    file->Read(nullptr, &size, observer);
    EXPECT_EQ(size, 0U);
    file->Read(kept.data(), &size, observer);
    file->Read(kept, observer);
    EXPECT_EQ(kept, Bytes{7});
    EXPECT_THAT(camera->changes, ElementsAre("Set FileOperationSelector Write", "Set FileAccessOffset 0"));
    EXPECT_THAT(observer->progress, ElementsAre(0.0, 1.0, 0.0, 1.0, 0.0, 1.0));
}

// A selector or offset is written only when it differs, or cannot be read.
TEST_F(FileTransfer, WritesOnlyWhatDiffers)
{
    const auto block =
        std::vector<std::string>{"Set FileAccessLength 4", "Set FileAccessBuffer", "Run FileOperationExecute"};
    file->Write(counting(4), {});
    camera->changes.clear();
    file->Append(counting(4), {});
    EXPECT_EQ(camera->changes, block);
    camera->changes.clear();
    camera->Fail("Get FileSelector");
    camera->Fail("Get FileOperationSelector");
    camera->Fail("Get FileAccessOffset");
    file->Write(counting(4), {});
    EXPECT_EQ(camera->changes.size(), 3 + block.size());
    const auto other = access.GetFile("B");
    camera->changes.clear();
    EXPECT_EQ(file->GetSize(), 8U);
    file->Close();
    EXPECT_THAT(camera->changes,
                ElementsAre("Set FileSelector A", "Set FileOperationSelector Close", "Run FileOperationExecute"));
}

// A transfer of three blocks that breaks off in block 1, 2 and 3, at each of its steps.
TEST_F(FileTransfer, BreaksOffWithItsReasonAtEachStepOfEachBlock)
{
    const std::string writes = "WA"; // writing and appending
    const std::string reads = "R";
    const std::string all = writes + reads;
    const struct
    {
        std::string directions;
        std::string call;
        unsigned moved; // 1: the block itself is on the camera when writing breaks off
        std::string text;
        Value value = false; // anything else: the call succeeds, with this wrong value
    } steps[] = {
        {writes, "Range FileAccessLength", 0, "Could not get range of file access length." + Code},
        {reads, "Range FileAccessLength", 0, "Could not get range of file access length."},
        {all, "Set FileAccessLength", 0, "Could not set file access length file operation." + Code},
        {writes, "Set FileAccessBuffer", 0, "Could not write into access buffer." + Code},
        {all, "Run FileOperationExecute", 1, "Could not execute file operation." + Code},
        {all, "Get FileOperationStatus", 1, "Could not get file operation status." + Code},
        {all, "Get FileOperationStatus", 1, "Unsuccessful file operation execution  for file \"A\" (Status: Busy).",
         std::string("Busy")},
        {all, "Get FileOperationResult", 1, "Could not get file operation result." + Code},
        {writes, "Get FileOperationResult", 1, "Invalid size written by file operation.", std::int64_t{7}},
        {reads, "Get FileOperationResult", 1, "Invalid size read by file operation.", std::int64_t{7}},
        {reads, "Get FileAccessBuffer", 1, "Could not read access buffer." + Code},
        {reads, "Get FileAccessBuffer", 1, "Insufficient data read from access buffer.", Bytes(7)},
        {all, "Get FileAccessOffset", 1, "Could not get file offset." + Code},
        {all, "Get FileAccessOffset", 1, "Invalid file offset found.", std::int64_t{3}},
    };
    for (unsigned run = 0; run < 3 * std::size(steps); ++run)
    {
        const auto& step = steps[run / 3];
        const unsigned block = run % 3 + 1;
        const unsigned n = step.call == "Get FileAccessOffset" ? block + 1 : block; // the first is before the blocks
        for (const char direction : step.directions)
        {
            step.value == Value(false) ? camera->Fail(step.call, n) : tamper(step.call, n, step.value);
            content = direction == 'W' ? Bytes() : Bytes(40);
            const std::size_t before = content.size();
            const auto transfer = [&]
            {
                direction == 'W'   ? file->Write(counting(40), {})
                : direction == 'A' ? file->Append(counting(40), {})
                                   : static_cast<void>(file->Read({}));
            };
            EXPECT_EQ(FailureOf(transfer), step.text) << direction << " block " << block;
            const unsigned moved = direction == 'R' ? 0 : std::min(40U, 16 * (block - 1 + step.moved));
            EXPECT_EQ(content.size(), before + moved) << step.text;
            EXPECT_TRUE(camera->files["A"].open);
        }
    }
}

TEST_F(FileTransfer, FailsBeforeItMovesAnything)
{
    unsigned long size = 3;
    unsigned char byte = 0;
    const std::tuple<std::string, std::function<void()>, std::string> cases[] = {
        {"", [&] { file->Write(nullptr, 1, {}); }, "No data passed."},
        {"", [&] { file->Append(nullptr, 1, {}); }, "No data passed."},
        {"", [&] { file->Read(&byte, nullptr, {}); }, "No size passed."},
        {"", [&] { file->Read(&byte, &(size = 0), {}); }, "Not enough data passed."},
        {"Get FileSize", [&] { file->GetSize(); }, "Could not get file size." + Code},
        {"Set FileSelector", [&] { access.GetFile("B"); }, "Could not select file \"B\"." + Code},
        {"Set FileAccessOffset", [&] { file->Append(&byte, 1, {}); }, "Could not set file offset." + Code},
        {"Set FileOpenMode", [&] { file->Open("Read"); }, "Could not select file open mode \"Read\"." + Code},
        {"Set FileOperationSelector", [&] { file->Delete(); },
         "Could not select operation \"Delete\" for file \"A\"." + Code},
        {"", [&] { file->Open("Write"); }, "Unsuccessful file operation execution  for file \"A\" (Status: Failure)."},
    };
    content = counting(5);
    for (const auto& [failing, call, text] : cases)
    {
        camera->Fail(failing);
        EXPECT_EQ(FailureOf(call), text);
        EXPECT_EQ(content, counting(5));
    }
    tamper("Get FileSize", 1, std::int64_t{-1});
    EXPECT_EQ(FailureOf([&] { file->GetSize(); }), "Invalid file size found.");
}

TEST_F(FileTransfer, KeepsToTheCamerasBlockLimitsAndTheObserver)
{
    ScriptedFeature& length = (*camera)["FileAccessLength"];
    const auto write = [&] { file->Write(counting(40), observer); };
    const auto read = [&] { file->Read(observer); };
    length.minimum = std::int64_t{8};
    EXPECT_EQ(FailureOf(write), "") << "the last block has just the smallest size";
    EXPECT_THAT(observer->progress, ElementsAre(0.0, 0.4, 0.8, 1.0));
    length.minimum = std::int64_t{9};
    EXPECT_EQ(FailureOf(write), "Block size too large for file access length minimum value.");
    length.minimum = length.maximum = std::int64_t{0};
    EXPECT_EQ(FailureOf(write), "The camera accepts no block of data.");
    length.maximum = ScriptedCamera::LargestBlock;

    content.clear();
    observer->blocksToAbort = 2;
    EXPECT_EQ(FailureOf(write), "Process aborted by user.");
    EXPECT_EQ(content.size(), 32U);
    observer->blocksToAbort = 1;
    EXPECT_EQ(FailureOf(read), "Process aborted by user.");

    content.clear();
    observer->progress.clear();
    camera->Fail("Get FileProcessStatus", 1);
    tamper("Get FileProcessStatus", 2, std::string("UpdateNotRequired"));
    EXPECT_EQ(FailureOf(write), "");
    EXPECT_EQ(content.size(), 32U) << "the camera needs no third block";
    EXPECT_THAT(observer->progress, ElementsAre(0.0, 0.4, 0.8, 1.0));
    observer->progress.clear();
    file->Write(counting(4), observer);
    EXPECT_THAT(observer->progress, ElementsAre(0.0, 1.0)) << "after the last block the camera is not asked";
    camera->emptyHandles = {"FileProcessStatus"};
    const auto bare = FileAccess(camera).GetFile("B");
    bare->Open("Write");
    bare->Write(counting(40), {});
    EXPECT_EQ(bare->GetSize(), 40U) << "a camera that never tells gets everything";
}
