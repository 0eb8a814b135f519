// What every camera family can do with its correction sets, whatever form it keeps them in.
#include "DpcAdapter.h"

namespace KTR::DPC
{

std::vector<DpcAdapter::CorrectionSetPtr> DpcAdapter::GetAvailableCorrectionSetsWithMetadata()
{
    return GetAvailableCorrectionSets();
}

} // namespace KTR::DPC
