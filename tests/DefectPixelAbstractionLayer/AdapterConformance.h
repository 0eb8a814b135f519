// The contract of all adapters, as checks that name what an adapter breaks.
#pragma once

#include "DpcAdapter.h"
#include "MemoryCamera.h"

#include <functional>

struct AdapterCase
{
    std::string name;
    // A camera with one stored set, both made anew for each check.
    std::function<boost::shared_ptr<MemoryCamera>()> makeCamera;
    std::function<boost::shared_ptr<KTR::DPC::DpcAdapter>(const boost::shared_ptr<MemoryCamera>&)> makeAdapter;
    std::string writableSet;
    KTR::DPC::SensorDefectList samples; // every kind that the family stores, at least two defects
    bool erases = true;                 // some can only be emptied by an empty list
    bool storesNothing = true;          // some take no empty list
};

// Empty for an adapter that keeps the contract; each violation begins with the operation's name.
std::vector<std::string> adapterViolations(const AdapterCase& adapterCase);
