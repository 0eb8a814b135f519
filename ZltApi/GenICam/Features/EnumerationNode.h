// An enumeration feature.
#pragma once

#include "Features/DescribedNode.h"

namespace GenICam
{

class EnumerationNode final : public DescribedNode
{
public:
    EnumerationNode(ArvGcFeatureNode* node, std::string name);

    using DescribedNode::Get;
    using DescribedNode::Set;
    ZltErrorType Get(std::int64_t& value) const override;
    ZltErrorType Get(std::string& value) const override;
    ZltErrorType Set(std::int64_t value) override;
    ZltErrorType Set(const std::string& value) override;
    ZltErrorType ListEntries(std::vector<Entry>& entries) const override;
    ZltErrorType IsEntryAvailable(const std::string& name, bool& available) const override;

private:
    ArvGcEnumEntry* Find(const std::string& name) const;
    ZltErrorType Select(ArvGcEnumEntry* entry);

    ArvGcEnumeration* const m_enumeration;
    std::vector<ArvGcEnumEntry*> m_entries; // in the order of the description
};

} // namespace GenICam
