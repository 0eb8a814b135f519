// A feature as the camera API hands it out.
#pragma once

#include "Features/FeatureGate.h"
#include "Features/FeatureMap.h"
#include "ZltApi/Feature.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace Simulation
{

// The features of one camera or stream together with the gate that guards them, and what is to be done when a feature
// that is written down at once has changed. Shared by the camera and all handles that it has given out.
struct FeatureAccess
{
    FeatureGate& gate;
    FeatureMap features;
    std::function<void()> keep;
};

// Thread-safe.
class FeatureHandle final : public ZltApi::Feature
{
public:
    FeatureHandle(std::shared_ptr<FeatureAccess> access, FeatureNode& node);

    // The container's two operations, for cameras and streams alike.
    static ZltErrorType List(const std::shared_ptr<FeatureAccess>& access, std::vector<ZltApi::FeaturePtr>& features);
    static ZltErrorType Find(const std::shared_ptr<FeatureAccess>& access, const char* name,
                             ZltApi::FeaturePtr& feature);

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
    template <typename Action> ZltErrorType Run(const char* operation, const Action& action) const;
    template <typename Action> ZltErrorType RunOnEnum(const char* operation, const Action& action) const;
    template <typename Value> ZltErrorType Read(Value& value) const;
    template <typename Value> ZltErrorType Write(const Value& value);

    const std::shared_ptr<FeatureAccess> m_access;
    FeatureNode& m_node;
};

} // namespace Simulation
