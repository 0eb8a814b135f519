// A feature as the camera API hands it out.
#pragma once

#include "BasicNode.h"
#include "ZltApi/Feature.h"

#include <functional>
#include <variant>

namespace ProviderBase
{

// Turns the forms of the camera API into those of a node, with the access rules in between. Thread-safe as far as the
// door is.
class BasicFeature : public ZltApi::Feature
{
public:
    // The node must live as long as this object.
    explicit BasicFeature(BasicNode& node) : m_node(node) {}

    ZltErrorType GetName(std::string& name) const final;
    ZltErrorType GetDataType(ZltFeatureDataType& type) const final;
    ZltErrorType IsReadable(bool& readable) const final;
    ZltErrorType IsWritable(bool& writable) const final;
    ZltErrorType GetValue(bool& value) const final { return Read(&value); }
    ZltErrorType GetValue(std::int64_t& value) const final { return Read(&value); }
    ZltErrorType GetValue(double& value) const final { return Read(&value); }
    ZltErrorType GetValue(std::string& value) const final { return Read(&value); }
    ZltErrorType GetValue(std::vector<unsigned char>& value) const final { return Read(&value); }
    ZltErrorType SetValue(bool value) final { return Write(&value); }
    ZltErrorType SetValue(std::int64_t value) final { return Write(&value); }
    ZltErrorType SetValue(double value) final { return Write(&value); }
    ZltErrorType SetValue(const char* value) final;
    ZltErrorType SetValue(const std::vector<unsigned char>& value) final { return Write(&value); }
    ZltErrorType GetRange(std::int64_t& minimum, std::int64_t& maximum) const final;
    ZltErrorType GetRange(double& minimum, double& maximum) const final;
    ZltErrorType GetIncrement(std::int64_t& increment) const final;
    ZltErrorType GetIncrement(double& increment) const final;
    ZltErrorType GetEntry(ZltApi::EnumEntryPtr& entry, const char* name) const final;
    ZltErrorType GetEntries(std::vector<ZltApi::EnumEntryPtr>& entries) const final;
    ZltErrorType GetValues(std::vector<std::string>& names) const final;
    ZltErrorType IsValueAvailable(const char* name, bool& available) const final;
    ZltErrorType RunCommand() override;
    ZltErrorType IsCommandDone(bool& done) const final;

protected:
    using Bytes = BasicNode::Bytes;
    using Action = std::function<ZltErrorType()>;
    using Target = std::variant<bool*, std::int64_t*, double*, std::string*, Bytes*>;
    using Source = std::variant<const bool*, const std::int64_t*, const double*, const std::string*, const Bytes*>;

    BasicNode& Node() const { return m_node; }

    // The camera's door: runs the action under its lock and turns what it throws into a code, or tells why it cannot be
    // run. The operation is the name of the camera API's. Never throws.
    virtual ZltErrorType Enter(const char* operation, const Action& action) const = 0;

    // Reading and writing with the way through the door.
    virtual ZltErrorType Read(const Target& target) const;
    virtual ZltErrorType Write(const Source& source);

    // The same for who is inside.
    ZltErrorType ReadNow(const Target& target) const;
    ZltErrorType WriteNow(const Source& source);
    ZltErrorType RunNow();

private:
    // Never allocates, as a function object with a copy of the action might.
    template <typename Inside> ZltErrorType Pass(const char* operation, const Inside& action) const
    {
        return Enter(operation, std::cref(action));
    }

    BasicNode& m_node;
};

} // namespace ProviderBase
