// One feature of a camera or of its stream.
#pragma once

#include "ZltApi/Feature.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace GenICam
{

// What is not overridden does not fit the feature's data type. Called under the lock of the camera's connection;
// operations throw AravisError where the camera or its description fail.
class FeatureNode
{
public:
    using Bytes = std::vector<unsigned char>;
    struct Entry
    {
        std::string name;
        std::int64_t number = 0;
    };

    FeatureNode(std::string name, ZltFeatureDataType type) : m_name(std::move(name)), m_type(type) {}
    virtual ~FeatureNode() = default;
    FeatureNode(const FeatureNode&) = delete;
    FeatureNode& operator=(const FeatureNode&) = delete;

    const std::string& Name() const { return m_name; }
    ZltFeatureDataType Type() const { return m_type; }

    // A feature that is described but not implemented counts as absent. Does not change while the camera is open.
    virtual bool IsImplemented() { return true; }
    virtual bool IsReadable() = 0;
    virtual bool IsWritable() = 0;

    // The caller has made sure that the feature is readable or writable.
    virtual ZltErrorType Get(bool&) { return ZltErrorWrongType; }
    virtual ZltErrorType Get(std::int64_t&) { return ZltErrorWrongType; }
    virtual ZltErrorType Get(double&) { return ZltErrorWrongType; }
    virtual ZltErrorType Get(std::string&) { return ZltErrorWrongType; }
    virtual ZltErrorType Get(Bytes&) { return ZltErrorWrongType; }
    virtual ZltErrorType Set(bool) { return ZltErrorWrongType; }
    virtual ZltErrorType Set(std::int64_t) { return ZltErrorWrongType; }
    virtual ZltErrorType Set(double) { return ZltErrorWrongType; }
    virtual ZltErrorType Set(const std::string&) { return ZltErrorWrongType; }
    virtual ZltErrorType Set(const Bytes&) { return ZltErrorWrongType; }

    virtual ZltErrorType Range(std::int64_t&, std::int64_t&) { return ZltErrorWrongType; }
    virtual ZltErrorType Range(double&, double&) { return ZltErrorWrongType; }
    virtual ZltErrorType Increment(std::int64_t&) { return ZltErrorWrongType; }
    virtual ZltErrorType Increment(double&) { return ZltErrorWrongType; }

    // In the camera's order, whether available now or not.
    virtual ZltErrorType Entries(std::vector<Entry>&) { return ZltErrorWrongType; }
    virtual ZltErrorType IsEntryAvailable(const std::string&, bool&) { return ZltErrorWrongType; }

    virtual ZltErrorType Run() { return ZltErrorWrongType; }
    virtual ZltErrorType IsDone(bool&) { return ZltErrorWrongType; }

private:
    const std::string m_name;
    const ZltFeatureDataType m_type;
};

} // namespace GenICam
