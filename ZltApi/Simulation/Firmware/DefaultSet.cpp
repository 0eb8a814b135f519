// The correction set that a camera starts with.
#include "Firmware/DefaultSet.h"

namespace Simulation
{

namespace
{

constexpr const char* Name = "CorrectionSetDefault";

} // namespace

void DefaultSet::AddFeature(FeatureMap& features, const std::vector<std::string>& sets)
{
    m_feature = &features.Add<EnumNode>(Name, sets.front(), sets);
    m_feature->OnWrite(
        [this](const std::string& set)
        {
            m_state.SetNonvolatile({{Name, set}});
            return ZltErrorSuccess;
        });
}

void DefaultSet::Recall()
{
    const auto nonvolatile = m_state.Nonvolatile();
    const auto stored = nonvolatile.find(Name);
    m_feature->Reset();
    if (stored != nonvolatile.end())
    {
        m_feature->Restore(stored->second);
    }
}

} // namespace Simulation
