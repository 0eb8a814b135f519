// One feature as the camera itself sees it.
#pragma once

#include "ZltApi/ResultCodes.h"
#include "ZltApi/Types.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace ProviderBase
{

// The base refuses every typed operation with ZltErrorWrongType; a kind overrides those that fit it. Not thread-safe:
// BasicFeature calls it behind the camera's door only, and asks there for access, so that a camera can use its own
// features at any time.
class BasicNode
{
public:
    using Bytes = std::vector<unsigned char>;
    struct Entry
    {
        std::string name;
        std::int64_t number = 0;
    };

    BasicNode(std::string name, ZltFeatureDataType type) : m_name(std::move(name)), m_type(type) {}
    virtual ~BasicNode() = default;
    BasicNode(const BasicNode&) = delete;
    BasicNode& operator=(const BasicNode&) = delete;

    const std::string& Name() const { return m_name; }
    ZltFeatureDataType Type() const { return m_type; }

    // Now. A command is never readable.
    virtual bool IsReadable() const = 0;
    virtual bool IsWritable() const = 0;

    virtual ZltErrorType Get(bool&) const { return ZltErrorWrongType; }
    virtual ZltErrorType Get(std::int64_t&) const { return ZltErrorWrongType; }
    virtual ZltErrorType Get(double&) const { return ZltErrorWrongType; }
    virtual ZltErrorType Get(std::string&) const { return ZltErrorWrongType; }
    virtual ZltErrorType Get(Bytes&) const { return ZltErrorWrongType; }
    virtual ZltErrorType Set(bool) { return ZltErrorWrongType; }
    virtual ZltErrorType Set(std::int64_t) { return ZltErrorWrongType; }
    virtual ZltErrorType Set(double) { return ZltErrorWrongType; }
    virtual ZltErrorType Set(const std::string&) { return ZltErrorWrongType; }
    virtual ZltErrorType Set(const Bytes&) { return ZltErrorWrongType; }
    virtual ZltErrorType Range(std::int64_t&, std::int64_t&) const { return ZltErrorWrongType; }
    virtual ZltErrorType Range(double&, double&) const { return ZltErrorWrongType; }
    virtual ZltErrorType Increment(std::int64_t&) const { return ZltErrorWrongType; }
    virtual ZltErrorType Increment(double&) const { return ZltErrorWrongType; }
    // All entries in the camera's order, whether available now or not.
    virtual ZltErrorType ListEntries(std::vector<Entry>&) const { return ZltErrorWrongType; }
    virtual ZltErrorType IsEntryAvailable(const std::string&, bool&) const { return ZltErrorWrongType; }
    virtual ZltErrorType Run() { return ZltErrorWrongType; }
    virtual ZltErrorType IsDone(bool&) const { return ZltErrorWrongType; }

private:
    const std::string m_name;
    const ZltFeatureDataType m_type;
};

} // namespace ProviderBase
