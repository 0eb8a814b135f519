// The camera's files behind the file access features of the GenICam naming convention.
#pragma once

#include "Features/EnumNode.h"
#include "Features/FeatureMap.h"
#include "Features/ValueNode.h"
#include "Firmware/Firmware.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace Simulation
{

// One of the camera's files.
struct CameraFile
{
    std::string name;
    std::uint64_t maximumSize; // bytes
    bool writable = true;      // a file that is not can be neither written nor deleted
    bool readFailsWhenEmpty = false;
    bool emptiedByOpening = false; // for writing, whether or not anything is written then
    // Name in the camera's state; worked out at each use, so that one file can show different contents.
    std::function<std::string()> storage;
    std::function<bool()> isLocked;  // it can be neither written nor deleted now; empty: never
    std::function<void()> onChanged; // its permanent content is another one now; empty: nobody needs to know
};

// Each file has a state of its own: closed, open for reading, open for writing. Opening gives the operations a copy of
// the content; a file that was open for writing and was written becomes permanent, at once and as a whole, when it is
// closed. The first block written at offset 0 drops the old content, a block at the end extends it. What a host that
// disappears leaves open is dropped.
class FileFeatures
{
public:
    // The files in the order of "FileSelector"; blocks of up to blockSize bytes. With descriptions each file has a text
    // beside its content, behind the feature "FileDescriptionBuffer" and the operation "WriteDescription".
    FileFeatures(const FirmwareServices& services, std::vector<CameraFile> files, std::uint32_t blockSize,
                 bool hasDescriptions = false);

    void AddFeatures(FeatureMap& features);
    void Disconnect();

    // The content that is permanent now; empty when there is none.
    FileBytes Stored(const CameraFile& file) const;
    // Gives a file its description, by the name of its content in the camera's state.
    void Describe(const std::string& storage, const std::string& text);

private:
    enum class Mode
    {
        Closed,
        Reading,
        Writing
    };
    struct Session
    {
        Mode mode = Mode::Closed;
        FileBytes content;
        bool written = false;
        std::int64_t offset = 0;
        std::string storage; // of the moment it was opened
    };

    void AddSelectors(FeatureMap& features);
    void AddTransfer(FeatureMap& features);
    void AddStatus(FeatureMap& features);
    void AddDescriptions(FeatureMap& features);

    const CameraFile& Selected() const;
    Session& State() { return m_sessions[m_fileSelector->Current()]; }
    std::int64_t Size() const;
    bool IsExecutable() const;
    void Store(const std::string& storage, const FileBytes& content);
    ZltErrorType Execute();
    // The operations return what "FileOperationStatus" tells afterwards.
    std::string Run(const std::string& operation, std::uint32_t shortBy);
    std::string Open();
    std::string Close();
    std::string Read(std::uint32_t shortBy);
    std::string Write(std::uint32_t shortBy);
    std::string Delete();
    std::string WriteDescription();

    const FirmwareServices m_services;
    const std::vector<CameraFile> m_files;
    const std::uint32_t m_blockSize;
    const bool m_hasDescriptions;
    std::optional<std::string> m_newDescription; // written for the selected file, but not yet permanent
    mutable std::map<std::string, Session> m_sessions;
    FeatureNode::Bytes m_buffer;
    EnumNode* m_fileSelector = nullptr;
    EnumNode* m_operation = nullptr;
    EnumNode* m_openMode = nullptr;
    EnumNode* m_status = nullptr;
    IntegerNode* m_length = nullptr;
    IntegerNode* m_result = nullptr;
};

} // namespace Simulation
