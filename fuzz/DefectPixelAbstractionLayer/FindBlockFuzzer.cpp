// A walk for an arbitrary tag through arbitrary bytes: a position inside of them, or an exception.
#include "DpcFileOstrel.h"
#include "Exception.h"

#include <boost/make_shared.hpp>

#include <cassert>

using namespace KTR::DPC;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t ArgumentsSize = 8;
    if (size < ArgumentsSize)
    {
        return 0;
    }
    const DataHelper arguments({data, data + ArgumentsSize}, true);
    const auto tag = arguments.read32(0);
    const auto start = arguments.read32(4);
    const auto bytes =
        boost::make_shared<DataHelper>(std::vector<std::uint8_t>(data + ArgumentsSize, data + size), true);
    try
    {
        const auto position = DpcFileOstrel::findBlock(bytes, tag, start);
        assert(position == start ? bytes->read32(0) == tag : bytes->read32(position) == tag);
    }
    catch (const KTR::System::Exception& exception)
    {
        assert(!exception.ToString().empty());
    }
    return 0;
}
