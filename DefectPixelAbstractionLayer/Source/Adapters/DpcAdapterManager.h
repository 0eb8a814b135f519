// Finds the adapter for a camera by the camera's own name strings.
#pragma once

#include "CameraAbstraction.h"
#include "DpcAdapter.h"

#include <boost/shared_ptr.hpp>

#include <map>
#include <string>

namespace KTR::DPC
{

class DpcAdapterManager
{
public:
    DpcAdapterManager() = delete;

    // Whether the family name or else the model name is known. Needs a readable model name in either case, and asks no
    // adapter: GetCompatibleDpcAdapter can still give a null pointer.
    static bool IsCompatible(const boost::shared_ptr<CameraAbstraction>& camera);

    // A new adapter, null when there is none. The model name is read only when the family name is not known. What an
    // adapter's constructor throws goes through.
    static boost::shared_ptr<DpcAdapter> GetCompatibleDpcAdapter(const boost::shared_ptr<CameraAbstraction>& camera);

private:
    using AdapterCreator = boost::shared_ptr<DpcAdapter> (*)(const boost::shared_ptr<CameraAbstraction>& camera);
    using AdapterTable = std::map<std::string, AdapterCreator>;

    static AdapterTable initializeMapping();
    // The row of this very name, else the last row in key order whose key is somewhere in the name, else the end.
    static AdapterTable::const_iterator searchModelNameInMap(const std::string& name);

    static boost::shared_ptr<DpcAdapter> ostrelCreator(const boost::shared_ptr<CameraAbstraction>& camera);
    static boost::shared_ptr<DpcAdapter> rivoUCreator(const boost::shared_ptr<CameraAbstraction>& camera);
    static boost::shared_ptr<DpcAdapter> tamorinProCreator(const boost::shared_ptr<CameraAbstraction>& camera);
    static boost::shared_ptr<DpcAdapter> establishedGigECreator(const boost::shared_ptr<CameraAbstraction>& camera);
    static boost::shared_ptr<DpcAdapter> loadDefectsAdapterCreator(const boost::shared_ptr<CameraAbstraction>& camera);
    static boost::shared_ptr<DpcAdapter> quorsalinWithPython(const boost::shared_ptr<CameraAbstraction>& camera);

    // Filled when the program loads and never changed, so it needs no lock.
    static const AdapterTable g_modelName2DpcAdapter;
};

} // namespace KTR::DPC
