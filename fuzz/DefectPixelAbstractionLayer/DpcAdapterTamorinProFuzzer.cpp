// Arbitrary bytes as a Tamorin Pro dataset: refused, or a list that reads back when it is written; and their metadata.
#include "DefectLists.h"
#include "DpcAdapterTamorinPro.h"

#include <string_view>

void FuzzOrRefuse(const Bytes& input)
{
    using Adapter = DpcAdapterTamorinPro;
    const auto metadata = NeverRefuses([&] { return Adapter::GetCorrectionSetMetadata(input); });
    assert(metadata.size() <= 3);
    // A file that ends inside the size behind its tag ends the process, as the adapter says.
    const std::string_view tag = "PDA1";
    const auto found = std::search(input.begin(), input.end(), tag.begin(), tag.end());
    if (found != input.end() && input.end() - found < 8)
    {
        return;
    }
    const auto defects = Adapter::getSensorDefectsListFromRawData(input);
    CorrectionSet set("DPC_User_1");
    for (const auto& [key, value] : metadata)
    {
        set.setMetadata(key, value);
    }
    const auto file = Adapter::ConvertDefectsListToBinary(set, defects, Width, Height);
    assert(areEqual(Adapter::getSensorDefectsListFromRawData(file), inFileOrder(defects)));
}
