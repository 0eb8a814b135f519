// A feature as the camera API hands it out.
#pragma once

#include "Features/FeatureMap.h"
#include "ZltApi/Feature.h"

#include <memory>
#include <string>
#include <vector>

namespace GenICam
{

class Connection;

// Thread-safe. Of use until the camera is closed or gone.
class FeatureHandle final : public ZltApi::Feature
{
public:
    FeatureHandle(std::shared_ptr<Connection> connection, FeatureNode& node);

    ZltErrorType GetName(std::string& name) const override;
    ZltErrorType GetDataType(ZltFeatureDataType& type) const override;
    ZltErrorType IsReadable(bool& readable) const override;
    ZltErrorType IsWritable(bool& writable) const override;
    ZltErrorType GetValue(bool& value) const override;
    ZltErrorType GetValue(std::int64_t& value) const override;
    ZltErrorType GetValue(double& value) const override;
    ZltErrorType GetValue(std::string& value) const override;
    ZltErrorType GetValue(std::vector<unsigned char>& value) const override;
    ZltErrorType SetValue(bool value) override;
    ZltErrorType SetValue(std::int64_t value) override;
    ZltErrorType SetValue(double value) override;
    ZltErrorType SetValue(const char* value) override;
    ZltErrorType SetValue(const std::vector<unsigned char>& value) override;
    ZltErrorType GetRange(std::int64_t& minimum, std::int64_t& maximum) const override;
    ZltErrorType GetRange(double& minimum, double& maximum) const override;
    ZltErrorType GetIncrement(std::int64_t& increment) const override;
    ZltErrorType GetIncrement(double& increment) const override;
    ZltErrorType GetEntry(ZltApi::EnumEntryPtr& entry, const char* name) const override;
    ZltErrorType GetEntries(std::vector<ZltApi::EnumEntryPtr>& entries) const override;
    ZltErrorType GetValues(std::vector<std::string>& names) const override;
    ZltErrorType IsValueAvailable(const char* name, bool& available) const override;
    ZltErrorType RunCommand() override;
    ZltErrorType IsCommandDone(bool& done) const override;

private:
    template <typename Value> ZltErrorType Read(Value& value) const;
    template <typename Value> ZltErrorType Write(const Value& value);
    ZltErrorType Entries(std::vector<FeatureNode::Entry>& entries) const;
    ZltErrorType WaitUntilDone() const;

    const std::shared_ptr<Connection> m_connection;
    FeatureNode& m_node; // lives as long as the connection
    const std::string m_name;
    const ZltFeatureDataType m_type;
};

} // namespace GenICam
