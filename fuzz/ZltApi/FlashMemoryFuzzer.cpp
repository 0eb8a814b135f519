// Arbitrary accesses of a host to the flash of a camera: never a crash, and the factory's file stays as it was.
#include "Firmware/Flash/FlashMemory.h"

#include <algorithm>
#include <cassert>
#include <filesystem>

#include <unistd.h>

using namespace Simulation;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::uint64_t Places[] = {0x1A0B4, 0x1A0BC, 0x1A0AC, 0x1A0A8, 0x1A0B0,
                                        0x1A100, 0x1AA00, 0x14000, 0x1A0A4};
    constexpr std::uint32_t Values[] = {1'532'604, 5, 2, 6, 102'101, 103'100, 8, 4, 0};
    static CameraState state(std::filesystem::temp_directory_path() / ("lorvane-flash-" + std::to_string(getpid())));
    CameraConfig config;
    config.fileSizeMax = 64;
    config.flashTime = std::chrono::milliseconds(0);
    FaultPlan faults;
    const FileBytes factory(12, 5);
    state.SetFile(FlashMemory::FactoryFile, factory);
    state.SetFile(FlashMemory::UserFile, {});
    const std::vector<PixelFault> none;
    FlashMemory flash({config, state, faults, [&]() -> const auto& { return none;
}
, [] {}
},
                      [](const FileBytes& bytes) {
    return bytes.size() > 4; });
for (std::size_t i = 0; i + 2 < size && i < 60; i += 3)
{
    const std::uint64_t place = Places[data[i] % std::size(Places)];
    const std::uint32_t value = data[i + 1] < 128 ? Values[data[i + 1] % std::size(Values)] : data[i + 1];
    std::vector<unsigned char> bytes = {static_cast<unsigned char>(value >> 24),
                                        static_cast<unsigned char>(value >> 16), static_cast<unsigned char>(value >> 8),
                                        static_cast<unsigned char>(value)};
    const bool isWindow = place == 0x1A100 || place == 0x1AA00;
    bytes.resize(isWindow ? data[i + 2] : 4, data[i + 2]);
    data[i] & 0x80 ? flash.Read(place, bytes) : flash.Write(place, bytes);
}
flash.Disconnect();
assert(state.File(FlashMemory::FactoryFile, 64) == factory);
assert(state.File(FlashMemory::UserFile, 64).value_or(FileBytes()).size() <= 64);
return 0;
}
