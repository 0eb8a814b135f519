// Correction sets as a camera could tell of them.
#pragma once

#include "CorrectionSetData.h"

#include <boost/make_shared.hpp>

#include <map>
#include <memory>
#include <string>

using Metadata = std::map<std::string, double>;

// Flags: w writable, a available, e empty, d DPC on, r can be restored.
inline std::unique_ptr<CorrectionSetData> MakeSet(const std::string& name, const std::string& flags,
                                                  const Metadata& metadata = {})
{
    const auto has = [&flags](char flag) { return flags.find(flag) != std::string::npos; };
    const auto set = boost::make_shared<KTR::DPC::CorrectionSet>(name);
    for (const auto& [key, value] : metadata)
    {
        set->setMetadata(key, value);
    }
    auto data = std::make_unique<CorrectionSetData>(set, has('w'), has('a'), nullptr);
    data->SetIsEmpty(has('e'));
    data->SetIfDpcOn(has('d'));
    data->SetIfRestoreDefSetAvailable(has('r'));
    return data;
}
