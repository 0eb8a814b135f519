// One defect store of a camera, by name, and the conditions under which it was made.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>

namespace KTR::DPC
{

class CorrectionSet
{
public:
    // The name as the camera gives it: an enumeration entry or a file selector value.
    explicit CorrectionSet(std::string name);

    std::string getName() const;

    // Equal names, equally many metadata, and no key that both hold with different values. A key that the other set
    // lacks makes no difference by itself.
    bool operator==(const CorrectionSet& other) const;
    bool operator!=(const CorrectionSet& other) const;

    void clearAllMetadata();
    void setMetadata(const std::string& key, double value);
    // Empty when the key is absent.
    std::optional<double> getMetadata(const std::string& key) const;
    std::size_t getMetadataSize() const;
    std::map<std::string, double> getAllMetadata() const;

private:
    std::string m_name;
    std::map<std::string, double> m_metadata;
};

} // namespace KTR::DPC
