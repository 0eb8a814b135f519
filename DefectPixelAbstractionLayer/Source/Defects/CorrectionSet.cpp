// One defect store of a camera, by name, and the conditions under which it was made.
#include "CorrectionSet.h"

#include <algorithm>
#include <utility>

namespace KTR::DPC
{

CorrectionSet::CorrectionSet(std::string name) : m_name(std::move(name)) {}

std::string CorrectionSet::getName() const
{
    return m_name;
}

bool CorrectionSet::operator==(const CorrectionSet& other) const
{
    return m_name == other.m_name && m_metadata.size() == other.m_metadata.size() &&
           std::all_of(m_metadata.begin(), m_metadata.end(),
                       [&other](const auto& entry)
                       {
                           const auto theirs = other.getMetadata(entry.first);
                           return !theirs || *theirs == entry.second;
                       });
}

bool CorrectionSet::operator!=(const CorrectionSet& other) const
{
    return !(*this == other);
}

void CorrectionSet::clearAllMetadata()
{
    m_metadata.clear();
}

void CorrectionSet::setMetadata(const std::string& key, double value)
{
    m_metadata[key] = value;
}

std::optional<double> CorrectionSet::getMetadata(const std::string& key) const
{
    const auto found = m_metadata.find(key);
    return found == m_metadata.end() ? std::nullopt : std::optional<double>(found->second);
}

std::size_t CorrectionSet::getMetadataSize() const
{
    return m_metadata.size();
}

std::map<std::string, double> CorrectionSet::getAllMetadata() const
{
    return m_metadata;
}

} // namespace KTR::DPC
