// A walk for an arbitrary tag through arbitrary bytes: a position inside of them, or an exception.
#include "DefectLists.h"

#include <boost/make_shared.hpp>

void FuzzOrRefuse(const Bytes& input)
{
    constexpr std::ptrdiff_t ArgumentsSize = 8;
    const DataHelper arguments(input, true); // what is too short for them is refused here
    const auto tag = arguments.read32(0);
    const auto start = arguments.read32(4);
    const auto bytes = boost::make_shared<DataHelper>(Bytes(input.begin() + ArgumentsSize, input.end()), true);
    const auto position = DpcFileOstrel::findBlock(bytes, tag, start);
    assert(bytes->read32(position == start ? 0 : position) == tag);
}
