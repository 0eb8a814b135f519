// The stream feature that finds the best packet size.
#pragma once

#include "Features/FeatureNode.h"

#include <arv.h>

namespace GenICam
{

// The command "GVSPAdjustPacketSize": camera and computer try out which packets get through the network, and settle for
// the largest. Done when the command returns.
class PacketSizeAdjustment final : public FeatureNode
{
public:
    explicit PacketSizeAdjustment(ArvGvDevice* device);

    bool IsReadable() const override { return false; }
    bool IsWritable() const override;
    ZltErrorType Run() override;
    ZltErrorType IsDone(bool& done) const override;

private:
    ArvGvDevice* const m_device;
};

} // namespace GenICam
