// Arbitrary accesses to the tables in the memory of a camera: never a crash, never a pixel outside the sensor, and
// entries that the camera takes again after a restart.
#include "Firmware/Mask/ColumnTable.h"
#include "Firmware/Mask/RectangleTable.h"

#include <algorithm>
#include <cassert>

using namespace Simulation;

namespace
{

constexpr SensorSize Size{41, 35};
constexpr std::uint32_t Capacity = 64; // bytes

// Each access: a byte with the place, a byte with the length, and then, for a write, the bytes.
template <typename Table, typename... Arguments>
void use(std::uint64_t window, const std::uint8_t* data, std::size_t size, Arguments... arguments)
{
    Table table(arguments...);
    while (size >= 2)
    {
        const std::uint64_t address = window + data[0] / 2 * std::uint64_t{8};
        const bool isWrite = (data[0] & 1) != 0;
        const std::size_t length = isWrite ? std::min<std::size_t>(data[1], size - 2) : data[1];
        data += 2;
        size -= 2;
        std::vector<unsigned char> bytes(length);
        if (isWrite)
        {
            bytes.assign(data, data + length);
            data += length;
            size -= length;
            table.Write(address, bytes);
        }
        else
        {
            table.Read(address, bytes);
        }
    }
    for (const PixelPosition& pixel : table.Pixels(Size))
    {
        assert(pixel.x < Size.width && pixel.y < Size.height);
    }
    Table restarted(arguments...);
    restarted.Load(table.Entries());
    assert(restarted.Entries() == table.Entries());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    use<RectangleTable>(0x19300, data, size, Capacity, Size);
    use<RectangleTable>(0x19100, data, size, Capacity, Size);
    use<ColumnTable>(0x19108, data, size);
    use<ColumnTable>(0x19100, data, size);
    RectangleTable stored(Capacity, Size);
    stored.Load({data, data + size});
    assert(stored.Pixels(Size).size() <= Size.width * Size.height);
    return 0;
}
