// Arbitrary accesses of a host to the flash of a camera: never a crash, and the factory's file stays as it was.
#include "CameraFiles.h"
#include "Firmware/Flash/FlashMemory.h"

#include <filesystem>
#include <iterator>

#include <unistd.h>

namespace
{

constexpr std::uint32_t LargestFile = 64; // bytes

// In memory where there is such a folder: the camera waits for the disk at each change.
struct StateFolder
{
    ~StateFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }

    const std::filesystem::path memory = "/dev/shm";
    const std::filesystem::path path = (is_directory(memory) ? memory : std::filesystem::temp_directory_path()) /
                                       ("lorvane-flash-" + std::to_string(getpid()));
};

// One access: a place, a value and a size or a filling.
void accessAsHost(FlashMemory& flash, const std::uint8_t* data)
{
    constexpr std::uint64_t Places[] = {0x1A0B4, 0x1A0BC, 0x1A0AC, 0x1A0A8, 0x1A0B0,
                                        0x1A100, 0x1AA00, 0x14000, 0x1A0A4};
    constexpr std::uint32_t Values[] = {1'532'604, 5, 2, 6, 102'101, 103'100, 8, 4, 0};
    const std::uint64_t place = Places[data[0] % std::size(Places)];
    const std::uint32_t value = data[1] < 128 ? Values[data[1] % std::size(Values)] : data[1];
    Bytes bytes(4);
    std::generate_n(bytes.begin(), 4, [&, shift = 32]() mutable { return std::uint8_t(value >> (shift -= 8)); });
    const bool isWindow = place == 0x1A100 || place == 0x1AA00;
    bytes.resize(isWindow ? data[2] : 4, data[2]);
    data[0] & 0x80 ? flash.Read(place, bytes) : flash.Write(place, bytes);
}

} // namespace

void Fuzz(const Bytes& input)
{
    static const StateFolder folder;
    static CameraState state(folder.path);
    CameraConfig config;
    config.fileSizeMax = LargestFile;
    config.flashTime = std::chrono::milliseconds(0);
    FaultPlan faults;
    const FileBytes factory(12, 5);
    state.SetFile(FlashMemory::FactoryFile, factory);
    state.SetFile(FlashMemory::UserFile, {});
    const std::vector<PixelFault> none;
    const auto sensorFaults = [&none]() -> const std::vector<PixelFault>& { return none; };
    const auto isFile = [](const FileBytes& bytes) { return bytes.size() > 4; };
    FlashMemory flash({config, state, faults, sensorFaults, [] {}}, isFile);
    for (std::size_t i = 0; i + 2 < input.size() && i < 60; i += 3)
    {
        accessAsHost(flash, &input[i]);
    }
    flash.Disconnect();
    assert(state.File(FlashMemory::FactoryFile, LargestFile) == factory);
    assert(state.File(FlashMemory::UserFile, LargestFile).value_or(FileBytes()).size() <= LargestFile);
}
