// File operations of a simulated camera.
#include "Firmware/FileFeatures.h"

#include "Features/CommandNode.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace Simulation
{

namespace
{

constexpr const char* Success = "Success";
constexpr const char* Failure = "Failure";
constexpr const char* FileIsOpen = "FileIsOpen";
constexpr const char* FileNotOpen = "FileNotOpen";
constexpr const char* InvalidParameter = "InvalidParameter";
constexpr const char* FileProtected = "FileProtected";

constexpr const char* DescriptionSuffix = ".description";
constexpr std::uint64_t LongestDescription = 255; // bytes

std::vector<std::string> Names(const std::vector<CameraFile>& files)
{
    std::vector<std::string> names;
    std::transform(files.begin(), files.end(), std::back_inserter(names),
                   [](const CameraFile& file) { return file.name; });
    return names;
}

} // namespace

FileFeatures::FileFeatures(const FirmwareServices& services, std::vector<CameraFile> files, std::uint32_t blockSize,
                           bool hasDescriptions)
    : m_services(services),
      m_files(std::move(files)),
      m_blockSize(blockSize),
      m_hasDescriptions(hasDescriptions),
      m_buffer(blockSize, 0)
{
}

void FileFeatures::AddFeatures(FeatureMap& features)
{
    AddSelectors(features);
    AddTransfer(features);
    AddStatus(features);
    if (m_hasDescriptions)
    {
        AddDescriptions(features);
    }
}

void FileFeatures::Disconnect()
{
    m_sessions.clear();
    m_newDescription.reset();
}

void FileFeatures::AddSelectors(FeatureMap& features)
{
    m_fileSelector = &features.Add<EnumNode>("FileSelector", m_files.front().name, Names(m_files));
    std::vector<std::string> operations{"Open", "Close", "Read", "Write", "Delete"};
    if (m_hasDescriptions)
    {
        operations.emplace_back("WriteDescription");
    }
    m_operation = &features.Add<EnumNode>("FileOperationSelector", "Open", operations);
    auto& execute = features.Add<CommandNode>("FileOperationExecute", [this] { return Execute(); });
    execute.WritableIf([this] { return IsExecutable(); });
    m_openMode =
        &features.Add<EnumNode>("FileOpenMode", "Read", std::vector<std::string>{"Read", "Write", "ReadWrite"});
}

void FileFeatures::AddTransfer(FeatureMap& features)
{
    auto& buffer = features.Add<RawNode>("FileAccessBuffer");
    buffer.OnRead([this] { return m_buffer; });
    buffer.OnWrite(
        [this](const FeatureNode::Bytes& bytes)
        {
            if (bytes.size() > m_blockSize)
            {
                return ZltErrorInvalidValue;
            }
            std::copy(bytes.begin(), bytes.end(), m_buffer.begin());
            return ZltErrorSuccess;
        });

    auto& offset = features.Add<IntegerNode>("FileAccessOffset", 0, IntegerNode::Limits{0, 0});
    offset.LimitedBy([this] { return IntegerNode::Limits{0, static_cast<std::int64_t>(Selected().maximumSize)}; });
    offset.OnRead([this] { return State().offset; });
    offset.OnWrite(
        [this](std::int64_t value)
        {
            State().offset = value;
            return ZltErrorSuccess;
        });

    const auto largest = static_cast<std::int64_t>(m_blockSize);
    m_length = &features.Add<IntegerNode>("FileAccessLength", largest, IntegerNode::Limits{1, largest});
}

void FileFeatures::AddStatus(FeatureMap& features)
{
    m_status = &features.Add<EnumNode>(
        "FileOperationStatus", Success,
        std::vector<std::string>{Success, Failure, FileIsOpen, FileNotOpen, InvalidParameter, FileProtected});
    m_status->ReadOnly();
    m_result = &features.Add<IntegerNode>("FileOperationResult", 0,
                                          IntegerNode::Limits{0, std::numeric_limits<std::int64_t>::max()});
    m_result->ReadOnly();

    auto& size = features.Add<IntegerNode>("FileSize", 0, IntegerNode::Limits{0, 0});
    size.LimitedBy([this] { return IntegerNode::Limits{0, static_cast<std::int64_t>(Selected().maximumSize)}; });
    size.OnRead([this] { return Size(); });
    size.ReadOnly();

    auto& process = features.Add<EnumNode>("FileProcessStatus", "UpdateRequired",
                                           std::vector<std::string>{"UpdateRequired", "UpdateNotRequired"});
    process.ReadOnly();
    auto& status = features.Add<EnumNode>("FileStatus", "Closed", std::vector<std::string>{"Closed", "Open"});
    status.OnRead([this] { return State().mode == Mode::Closed ? "Closed" : "Open"; });
    status.ReadOnly();
}

void FileFeatures::AddDescriptions(FeatureMap& features)
{
    m_fileSelector->OnWrite(
        [this](const std::string& name)
        {
            if (name != m_fileSelector->Current())
            {
                m_newDescription.reset();
            }
            return ZltErrorSuccess;
        });
    auto& buffer = features.Add<StringNode>("FileDescriptionBuffer", std::string());
    buffer.OnRead(
        [this]
        {
            const auto stored = m_services.state.File(Selected().storage() + DescriptionSuffix, LongestDescription);
            return m_newDescription.value_or(stored ? std::string(stored->begin(), stored->end()) : std::string());
        });
    buffer.OnWrite(
        [this](const std::string& text)
        {
            if (text.size() > LongestDescription)
            {
                return ZltErrorInvalidValue;
            }
            m_newDescription = text;
            return ZltErrorSuccess;
        });
}

void FileFeatures::Describe(const std::string& storage, const std::string& text)
{
    m_services.state.SetFile(storage + DescriptionSuffix, FileBytes(text.begin(), text.end()));
}

FileBytes FileFeatures::Stored(const CameraFile& file) const
{
    return m_services.state.File(file.storage(), file.maximumSize).value_or(FileBytes());
}

void FileFeatures::Store(const std::string& storage, const FileBytes& content)
{
    m_services.state.SetFile(storage, content);
    if (const auto& onChanged = Selected().onChanged)
    {
        onChanged();
    }
}

const CameraFile& FileFeatures::Selected() const
{
    const std::string name = m_fileSelector->Current();
    return *std::find_if(m_files.begin(), m_files.end(), [&](const CameraFile& file) { return file.name == name; });
}

std::int64_t FileFeatures::Size() const
{
    const Session& session = m_sessions[m_fileSelector->Current()];
    return static_cast<std::int64_t>(session.mode == Mode::Closed ? Stored(Selected()).size() : session.content.size());
}

bool FileFeatures::IsExecutable() const
{
    const std::string operation = m_operation->Current();
    return Selected().writable || (operation != "Delete" && operation != "WriteDescription");
}

ZltErrorType FileFeatures::Execute()
{
    const std::string operation = m_operation->Current();
    FaultEffect fault;
    if (operation == "Read" || operation == "Write")
    {
        fault = m_services.faults.Hit(operation == "Read" ? "FileRead" : "FileWrite", Selected().name);
    }
    m_result->Assign(0);
    if (fault.code)
    {
        m_status->Assign(Failure);
        return static_cast<ZltErrorType>(*fault.code);
    }
    m_status->Assign(fault.value ? *fault.value : Run(operation, fault.shortBy));
    return ZltErrorSuccess;
}

std::string FileFeatures::Run(const std::string& operation, std::uint32_t shortBy)
{
    if (operation == "Open")
    {
        return Open();
    }
    if (operation == "Close")
    {
        return Close();
    }
    if (operation == "Read")
    {
        return Read(shortBy);
    }
    if (operation == "WriteDescription")
    {
        return WriteDescription();
    }
    return operation == "Write" ? Write(shortBy) : Delete();
}

std::string FileFeatures::Open()
{
    Session& session = State();
    const CameraFile& file = Selected();
    const bool reading = m_openMode->Current() == "Read";
    if (session.mode != Mode::Closed)
    {
        return FileIsOpen;
    }
    if (!reading && (!file.writable || (file.isLocked && file.isLocked())))
    {
        return FileProtected;
    }
    FileBytes content = Stored(file);
    if (reading && content.empty() && file.readFailsWhenEmpty)
    {
        return Failure;
    }
    const bool isEmptied = !reading && file.emptiedByOpening;
    session = {reading ? Mode::Reading : Mode::Writing, isEmptied ? FileBytes() : std::move(content), isEmptied, 0,
               file.storage()};
    return Success;
}

std::string FileFeatures::Close()
{
    Session& session = State();
    if (session.mode == Mode::Closed)
    {
        return FileNotOpen;
    }
    const Session closed = std::exchange(session, Session());
    if (closed.written)
    {
        Store(closed.storage, closed.content);
    }
    return Success;
}

std::string FileFeatures::Read(std::uint32_t shortBy)
{
    Session& session = State();
    if (session.mode == Mode::Closed)
    {
        return FileNotOpen;
    }
    const auto start = static_cast<std::size_t>(session.offset);
    if (start > session.content.size())
    {
        return InvalidParameter;
    }
    std::size_t length = std::min(static_cast<std::size_t>(m_length->Current()), session.content.size() - start);
    length -= std::min<std::size_t>(length, shortBy);
    std::fill(m_buffer.begin(), m_buffer.end(), static_cast<unsigned char>(0));
    std::copy_n(session.content.begin() + session.offset, length, m_buffer.begin());
    session.offset += static_cast<std::int64_t>(length);
    m_result->Assign(static_cast<std::int64_t>(length));
    return Success;
}

std::string FileFeatures::Write(std::uint32_t shortBy)
{
    Session& session = State();
    const CameraFile& file = Selected();
    if (session.mode != Mode::Writing)
    {
        return session.mode == Mode::Closed ? FileNotOpen : FileProtected;
    }
    if (session.offset == 0 && !session.written)
    {
        session.content.clear();
    }
    const auto start = static_cast<std::size_t>(session.offset);
    std::size_t length = static_cast<std::size_t>(m_length->Current());
    if (start > session.content.size() || length > file.maximumSize - start)
    {
        return InvalidParameter;
    }
    length -= std::min<std::size_t>(length, shortBy);
    session.content.resize(std::max(session.content.size(), start + length));
    std::copy_n(m_buffer.begin(), length, session.content.begin() + session.offset);
    session.written = true;
    session.offset += static_cast<std::int64_t>(length);
    m_result->Assign(static_cast<std::int64_t>(length));
    return Success;
}

std::string FileFeatures::Delete()
{
    const CameraFile& file = Selected();
    if (State().mode != Mode::Closed)
    {
        return FileIsOpen;
    }
    if (file.isLocked && file.isLocked())
    {
        return FileProtected;
    }
    Store(file.storage(), FileBytes());
    if (m_hasDescriptions)
    {
        Describe(file.storage(), {});
    }
    return Success;
}

std::string FileFeatures::WriteDescription()
{
    if (m_newDescription)
    {
        Describe(Selected().storage(), *m_newDescription);
        m_newDescription.reset();
    }
    return Success;
}

} // namespace Simulation
