// An enumeration feature: numbered, named entries, some of which may not be available now.
#pragma once

#include "Features/FeatureNode.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace Simulation
{

class EnumNode final : public FeatureNode
{
public:
    struct Entry : BasicNode::Entry
    {
        Entry(std::string entryName, std::int64_t entryNumber, Condition isAvailable = {})
            : available(std::move(isAvailable))
        {
            name = std::move(entryName);
            number = entryNumber;
        }
        Condition available; // empty: always
    };
    using Writer = std::function<ZltErrorType(const std::string& name)>;

    // Entries in the camera's order. The value is the name of one of them.
    EnumNode(std::string name, std::string value, std::vector<Entry> entries);
    // The same, with the entries numbered from 0.
    EnumNode(std::string name, std::string value, const std::vector<std::string>& entries);

    void OnRead(std::function<std::string()> reader) { m_reader = std::move(reader); }
    void OnWrite(Writer writer) { m_writer = std::move(writer); }

    const Entry* Find(const std::string& name) const; // null when there is none of that name
    static bool IsAvailable(const Entry& entry) { return !entry.available || entry.available(); }

    std::string Current() const { return m_reader ? m_reader() : m_value; }
    std::int64_t CurrentNumber() const;
    // The camera's own change of the value: neither access rules nor the hook are asked.
    void Assign(std::string value) { m_value = std::move(value); }

    using FeatureNode::Get;
    using FeatureNode::Set;
    ZltErrorType Get(std::int64_t& number) const override;
    ZltErrorType Get(std::string& name) const override;
    ZltErrorType Set(std::int64_t number) override;
    ZltErrorType Set(const std::string& name) override;
    ZltErrorType ListEntries(std::vector<BasicNode::Entry>& entries) const override;
    ZltErrorType IsEntryAvailable(const std::string& name, bool& available) const override;
    std::string Save() const override { return m_value; }
    bool Restore(const std::string& text) override;
    void Reset() override { m_value = m_initial; }

private:
    ZltErrorType Store(const Entry* entry);

    const std::string m_initial;
    std::string m_value;
    const std::vector<Entry> m_entries;
    std::function<std::string()> m_reader;
    Writer m_writer;
};

} // namespace Simulation
