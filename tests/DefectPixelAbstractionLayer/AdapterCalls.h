// The operations of an adapter as calls of their own, and what each says when the camera refuses it.
#pragma once

#include "DpcAdapter.h"
#include "Failure.h"
#include "MemoryCamera.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <functional>

struct AdapterCalls
{
    using Set = KTR::DPC::DpcAdapter::CorrectionSetPtr;
    using Call = std::function<void(const Set&)>;
    struct Refusal
    {
        std::string refused; // the camera's call that fails, whose words follow the text
        Call call;
        std::string set, text;
    };

    KTR::DPC::DpcAdapter& adapter;
    MemoryCamera& camera;
    Call sets = [this](const Set&) { adapter.GetAvailableCorrectionSets(); };
    Call getDefault = [this](const Set&) { adapter.GetDefaultCorrectionSet(); };
    Call setDefault = [this](const Set& set) { adapter.SetDefaultCorrectionSet(set); };
    Call isOn = [this](const Set& set) { adapter.IsCorrectionSetEnabled(set); };
    Call on = [this](const Set& set) { adapter.SetCorrectionSetEnabled(set, true); };
    Call off = [this](const Set& set) { adapter.SetCorrectionSetEnabled(set, false); };
    Call readable = [this](const Set& set) { adapter.IsCorrectionSetReadable(set); };
    Call writable = [this](const Set& set) { adapter.IsCorrectionSetWritable(set); };
    Call read = [this](const Set& set) { adapter.ReadCorrectionSet(set); };
    Call write = [this](const Set& set) { adapter.WriteCorrectionSet(set, {}); };
    Call space = [this](const Set& set) { adapter.IsSpaceSufficient(set, {}); };
    Call erase = [this](Set set) { adapter.EraseCorrectionSet(set); };
    Call restore = [this](const Set& set) { adapter.RestoreFactorySettings(set); };

    void ExpectRefusals(const std::vector<Refusal>& cases) const
    {
        for (const auto& [refused, call, set, text] : cases)
        {
            camera.log.refused = refused;
            const std::string cause = refused.empty() ? "" : "Refused: " + refused;
            EXPECT_EQ(FailureOf([&, &c = call, &name = set] { c(boost::make_shared<KTR::DPC::CorrectionSet>(name)); }),
                      text + cause);
        }
        camera.log = {};
    }
};
