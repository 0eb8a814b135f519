// Arbitrary bytes as a Tamorin Pro dataset: refused, or a list that reads back when it is written; and their metadata.
#include "DpcAdapterTamorinPro.h"
#include "Exception.h"
#include "PixelDefect.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <cassert>
#include <string_view>

using namespace KTR::DPC;

namespace
{

using Places = std::vector<std::pair<std::uint32_t, std::uint32_t>>; // row, column

Places places(const std::vector<std::uint8_t>& bytes)
{
    Places places;
    for (const auto& defect : DpcAdapterTamorinPro::getSensorDefectsListFromRawData(bytes))
    {
        const auto& pixel = dynamic_cast<const PixelDefect&>(*defect);
        places.emplace_back(pixel.getY(), pixel.getX());
    }
    return places;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::vector<std::uint8_t> bytes(data, data + size);
    assert(DpcAdapterTamorinPro::GetCorrectionSetMetadata(bytes).size() <= 3);

    // A file that ends inside the size behind its tag ends the process, as the adapter says.
    const std::string_view tag = "PDA1";
    const auto found = std::search(bytes.begin(), bytes.end(), tag.begin(), tag.end());
    if (found != bytes.end() && bytes.end() - found < 8)
    {
        return 0;
    }
    try
    {
        Places read = places(bytes);
        SensorDefectList defects;
        for (const auto& [y, x] : read)
        {
            defects.push_back(boost::make_shared<PixelDefect>(x, y));
        }
        std::sort(read.begin(), read.end());
        CorrectionSet set("DPC_User_1");
        for (const auto& [key, value] : DpcAdapterTamorinPro::GetCorrectionSetMetadata(bytes))
        {
            set.setMetadata(key, value);
        }
        assert(places(DpcAdapterTamorinPro::ConvertDefectsListToBinary(set, defects, 640, 512)) == read);
    }
    catch (const KTR::System::Exception& exception)
    {
        assert(!exception.ToString().empty());
    }
    return 0;
}
