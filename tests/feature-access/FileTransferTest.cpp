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

namespace
{

struct Observer : TaskObserver
{
    void ReportProgress(double value) override { progress.push_back(value); }
    void ReportMessage(const std::string&) override {}
    bool IsAborted() override { return queries++ == abortAt; }
    std::vector<double> progress;
    int queries = 0;
    int abortAt = -1;
};

Bytes counting(std::size_t size, unsigned char first = 1)
{
    Bytes bytes(size);
    std::iota(bytes.begin(), bytes.end(), first);
    return bytes;
}

class FileTransfer : public testing::Test
{
protected:
    // Puts a value into a feature just before the n-th call.
    void tamper(const std::string& call, unsigned n, const std::string& feature, const ScriptedFeature::Value& value)
    {
        camera->On(call, n, [this, feature, value] { (*camera)[feature].value = value; });
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
    for (const std::size_t size : {1U, 15U, 16U, 17U, 32U, 40U})
    {
        file->Open("Write");
        camera->changes.clear();
        file->Write(counting(size), {});
        EXPECT_EQ(std::count(camera->changes.begin(), camera->changes.end(), "Run FileOperationExecute"),
                  (size + 15) / 16);
        file->Append(counting(size, 100), observer);
        EXPECT_EQ(file->GetSize(), 2 * size);
        file->Close();
        file->Open("Read");
        Bytes expected = counting(size);
        Bytes read = expected;
        const Bytes appended = counting(size, 100);
        file->Read(read, size, observer);
        EXPECT_EQ(read, expected);
        expected.insert(expected.end(), appended.begin(), appended.end());
        EXPECT_EQ(file->Read(observer), expected);
        file->Close();
        file->Delete();
        EXPECT_TRUE(content.empty());
    }
    observer->progress.clear();
    file->Open("Write");
    file->Write(counting(40), observer);
    EXPECT_THAT(observer->progress, ElementsAre(0.0, 0.4, 0.8, 1.0));
}

TEST_F(FileTransfer, EmptyTransfersMoveNothing)
{
    file->Open("Write");
    (*camera)["FileAccessOffset"].value = std::int64_t{9};
    camera->changes.clear();
    file->Write(nullptr, 0, observer);
    EXPECT_THAT(camera->changes, ElementsAre("Set FileOperationSelector Write", "Set FileAccessOffset 0"));
    camera->changes.clear();
    file->Append(Bytes(), observer);
    unsigned long size = 0;
    Bytes kept = {7};
    file->Read(nullptr, &size, observer);
    EXPECT_EQ(size, 0U);
    file->Read(kept.data(), &size, observer);
    file->Read(kept, observer);
    EXPECT_EQ(kept, Bytes{7});
    EXPECT_THAT(camera->changes, ElementsAre());
    EXPECT_THAT(observer->progress, ElementsAre(0.0, 1.0, 0.0, 1.0, 0.0, 1.0));
    content = counting(20);
    file->Read(nullptr, &size, {});
    EXPECT_EQ(size, 20U);
}

// A selector or offset is written only when it differs, or cannot be read.
TEST_F(FileTransfer, WritesOnlyWhatDiffers)
{
    file->Open("Write");
    file->Write(counting(4), {});
    camera->changes.clear();
    file->Append(counting(4), {});
    const auto block =
        std::vector<std::string>{"Set FileAccessLength 4", "Set FileAccessBuffer", "Run FileOperationExecute"};
    EXPECT_EQ(camera->changes, block);
    camera->changes.clear();
    for (const char* feature : {"FileSelector", "FileOperationSelector", "FileAccessOffset", "FileProcessStatus"})
    {
        camera->Fail(std::string("Get ") + feature);
    }
    file->Write(counting(4), {});
    EXPECT_EQ(camera->changes.size(), 3 + block.size());
    const auto other = access.GetFile("B");
    camera->changes.clear();
    EXPECT_EQ(file->GetSize(), 8U);
    file->Close();
    EXPECT_THAT(camera->changes,
                ElementsAre("Set FileSelector A", "Set FileOperationSelector Close", "Run FileOperationExecute"));
}

// A transfer of three blocks that breaks in block 1, 2 and 3 of each direction, at each of its steps.
TEST_F(FileTransfer, BreaksOffWithItsReasonAtEachStepOfEachBlock)
{
    const struct
    {
        const char* call;
        unsigned moved;    // 1: the block itself is on the camera when writing breaks off
        const char* write; // the reason when writing or appending; null: no such call
        const char* read;
        ScriptedFeature::Value value = false; // anything else: the call succeeds, with this wrong value
    } steps[] = {
        {"Range FileAccessLength", 0, "Could not get range of file access length. (Error code: -13)",
         "Could not get range of file access length."},
        {"Set FileAccessLength", 0, "Could not set file access length file operation. (Error code: -13)",
         "Could not set file access length file operation. (Error code: -13)"},
        {"Set FileAccessBuffer", 0, "Could not write into access buffer. (Error code: -13)", nullptr},
        {"Run FileOperationExecute", 1, "Could not execute file operation. (Error code: -13)",
         "Could not execute file operation. (Error code: -13)"},
        {"Get FileOperationStatus", 1, "Could not get file operation status. (Error code: -13)",
         "Could not get file operation status. (Error code: -13)"},
        {"Get FileOperationStatus", 1, "Unsuccessful file operation execution  for file \"A\" (Status: Busy).",
         "Unsuccessful file operation execution  for file \"A\" (Status: Busy).", std::string("Busy")},
        {"Get FileOperationResult", 1, "Could not get file operation result. (Error code: -13)",
         "Could not get file operation result. (Error code: -13)"},
        {"Get FileOperationResult", 1, "Invalid size written by file operation.",
         "Invalid size read by file operation.", std::int64_t{7}},
        {"Get FileAccessBuffer", 0, nullptr, "Could not read access buffer. (Error code: -13)"},
        {"Get FileAccessBuffer", 0, nullptr, "Insufficient data read from access buffer.", Bytes(7)},
        {"Get FileAccessOffset", 1, "Could not get file offset. (Error code: -13)",
         "Could not get file offset. (Error code: -13)"},
        {"Get FileAccessOffset", 1, "Invalid file offset found.", "Invalid file offset found.", std::int64_t{3}},
    };
    const std::function<void()> transfers[] = {[&] { file->Write(counting(40), {}); },
                                               [&] { file->Append(counting(40), {}); }, [&] { file->Read({}); }};
    file->Open("Write");
    for (unsigned run = 0; run < std::size(steps) * 9; ++run)
    {
        const auto& step = steps[run / 9];
        const unsigned block = run / 3 % 3 + 1;
        const unsigned direction = run % 3; // index of transfers
        const char* const text = direction == 2 ? step.read : step.write;
        if (text != nullptr)
        {
            const std::string call = step.call;
            const unsigned n = call == "Get FileAccessOffset" ? block + 1 : block; // one when the offset is set
            step.value == ScriptedFeature::Value(false) ? camera->Fail(call, n)
                                                        : tamper(call, n, call.substr(call.find(' ') + 1), step.value);
            content = direction == 0 ? Bytes() : counting(40);
            EXPECT_EQ(FailureOf(transfers[direction]), text) << "block " << block;
            const std::size_t moved = std::min(40U, 16 * (block - 1 + step.moved));
            EXPECT_EQ(content.size(), direction == 0 ? moved : direction == 1 ? 40 + moved : 40) << text;
            EXPECT_TRUE(camera->files["A"].open);
        }
    }
}

TEST_F(FileTransfer, FailsBeforeItMovesAnything)
{
    unsigned long size = 3;
    unsigned char byte = 0;
    const struct
    {
        std::string failing;
        std::function<void()> call;
        std::string text;
    } cases[] = {
        {"", [&] { file->Write(nullptr, 1, {}); }, "No data passed."},
        {"", [&] { file->Append(nullptr, 1, {}); }, "No data passed."},
        {"", [&] { file->Read(&byte, nullptr, {}); }, "No size passed."},
        {"", [&] { file->Read(&byte, &(size = 0), {}); }, "Not enough data passed."},
        {"Get FileSize", [&] { file->GetSize(); }, "Could not get file size. (Error code: -13)"},
        {"Set FileAccessOffset", [&] { file->Append(&byte, 1, {}); }, "Could not set file offset. (Error code: -13)"},
        {"Set FileOpenMode", [&] { file->Open("Read"); },
         "Could not select file open mode \"Read\". (Error code: -13)"},
        {"Set FileOperationSelector", [&] { file->Delete(); },
         "Could not select operation \"Delete\" for file \"A\". (Error code: -13)"},
        {"", [&] { file->Open("Write"); }, "Unsuccessful file operation execution  for file \"A\" (Status: Failure)."},
    };
    file->Open("Write");
    content = counting(5);
    for (const auto& row : cases)
    {
        camera->Fail(row.failing);
        EXPECT_EQ(FailureOf(row.call), row.text);
        EXPECT_EQ(content, counting(5));
    }
    tamper("Get FileSize", 1, "FileSize", std::int64_t{-1});
    camera->Fail("Set FileAccessOffset");
    EXPECT_EQ(FailureOf([&] { file->GetSize(); }), "Invalid file size found.");
}

TEST_F(FileTransfer, KeepsToTheCamerasBlockLimitsAndTheObserver)
{
    ScriptedFeature& length = (*camera)["FileAccessLength"];
    file->Open("Write");
    const auto write = [&] { file->Write(counting(40), observer); };
    length.minimum = std::int64_t{8};
    EXPECT_EQ(FailureOf(write), "") << "the last block has just the smallest size";
    length.minimum = std::int64_t{9};
    EXPECT_EQ(FailureOf(write), "Block size too large for file access length minimum value.");
    EXPECT_EQ(FailureOf([&] { file->Read({}); }), "Block size too large for file access length minimum value.");
    length.minimum = length.maximum = std::int64_t{0};
    EXPECT_EQ(FailureOf(write), "The camera accepts no block of data.");
    length.maximum = ScriptedCamera::LargestBlock;

    content.clear();
    observer->abortAt = observer->queries + 2;
    EXPECT_EQ(FailureOf(write), "Process aborted by user.");
    EXPECT_EQ(content.size(), 32U);
    observer->abortAt = observer->queries + 1;
    EXPECT_EQ(FailureOf([&] { file->Read(observer); }), "Process aborted by user.");

    content.clear();
    observer->progress.clear();
    tamper("Get FileProcessStatus", 2, "FileProcessStatus", std::string("UpdateNotRequired"));
    EXPECT_EQ(FailureOf(write), "");
    EXPECT_EQ(content.size(), 32U) << "the camera needs no third block";
    EXPECT_THAT(observer->progress, ElementsAre(0.0, 0.4, 0.8, 1.0));
}
