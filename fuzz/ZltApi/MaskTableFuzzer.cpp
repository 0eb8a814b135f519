// Arbitrary accesses to the tables in the memory of a camera: never a crash, never a pixel outside the sensor, and
// entries that the camera takes again after a restart.
#include "CameraFiles.h"
#include "Firmware/Mask/ColumnTable.h"
#include "Firmware/Mask/RectangleTable.h"

namespace
{

constexpr SensorSize Size{41, 35};
constexpr std::uint32_t Capacity = 64; // bytes

// Each access: a byte with the place, a byte with the length, and then, for a write, the bytes.
template <typename Table, typename... Arguments>
void use(std::uint64_t window, const Bytes& input, Arguments... arguments)
{
    Table table(arguments...);
    for (std::size_t at = 0; at + 2 <= input.size();)
    {
        const std::uint64_t address = window + input[at] / 2 * std::uint64_t{8};
        const bool isWrite = (input[at] & 1) != 0;
        Bytes bytes(input[at + 1]);
        at += 2;
        if (isWrite)
        {
            bytes.resize(std::min(bytes.size(), input.size() - at));
            std::copy_n(input.begin() + static_cast<std::ptrdiff_t>(at), bytes.size(), bytes.begin());
            at += bytes.size();
        }
        isWrite ? table.Write(address, bytes) : table.Read(address, bytes);
    }
    CheckInside(table.Pixels(Size), Size);
    Table restarted(arguments...);
    restarted.Load(table.Entries());
    assert(restarted.Entries() == table.Entries());
}

} // namespace

void Fuzz(const Bytes& input)
{
    use<RectangleTable>(0x19300, input, Capacity, Size);
    use<RectangleTable>(0x19100, input, Capacity, Size);
    use<ColumnTable>(0x19108, input);
    use<ColumnTable>(0x19100, input);
    RectangleTable stored(Capacity, Size);
    stored.Load(input);
    assert(stored.Pixels(Size).size() <= Size.width * Size.height);
}
