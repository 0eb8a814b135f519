// An adapter on a camera in memory, its operations as calls of their own, and what each says when it is refused.
#pragma once

#include "DefectText.h"
#include "DpcAdapter.h"
#include "Failure.h"
#include "MemoryCamera.h"

#include <gmock/gmock.h>

#include <functional>

template <typename Adapter> struct AdapterTest : testing::Test
{
    using Set = KTR::DPC::DpcAdapter::CorrectionSetPtr;
    using Call = std::function<void(const Set&)>;
    struct Refusal
    {
        std::string refused; // the camera's call that fails, whose words follow the text
        Call call;
        std::string text;
        std::string set = {}; // else the user's
    };

    AdapterTest(boost::shared_ptr<MemoryCamera> made, const std::string& userSet)
        : camera(std::move(made)),
          user(boost::make_shared<KTR::DPC::CorrectionSet>(userSet))
    {
        camera->log = {};
    }
    // What was asked of the camera since the last time.
    std::vector<std::string> log() { return std::exchange(camera->log, CallLog()).calls; }
    void ExpectRefusals(const std::vector<Refusal>& cases)
    {
        for (const auto& [refused, call, text, name] : cases)
        {
            camera->log.refused = refused;
            const auto set = boost::make_shared<KTR::DPC::CorrectionSet>(name.empty() ? user->getName() : name);
            EXPECT_EQ(FailureOf([&, &c = call] { c(set); }), text + (refused.empty() ? "" : "Refused: " + refused));
        }
        camera->log = {};
    }

    boost::shared_ptr<MemoryCamera> camera;
    Adapter adapter{camera};
    Set user;
    const Call sets = [this](const Set&) { adapter.GetAvailableCorrectionSets(); },
               getDefault = [this](const Set&) { adapter.GetDefaultCorrectionSet(); },
               setDefault = [this](const Set&set) { adapter.SetDefaultCorrectionSet(set); },
               isOn = [this](const Set&set) { adapter.IsCorrectionSetEnabled(set); },
               on = [this](const Set&set) { adapter.SetCorrectionSetEnabled(set, true); },
               off = [this](const Set&set) { adapter.SetCorrectionSetEnabled(set, false); },
               readable = [this](const Set&set) { adapter.IsCorrectionSetReadable(set); },
               writable = [this](const Set&set) { adapter.IsCorrectionSetWritable(set); },
               read = [this](const Set&set) { adapter.ReadCorrectionSet(set); },
               write = [this](const Set&set) { adapter.WriteCorrectionSet(set, {}); },
               space = [this](const Set&set) { adapter.IsSpaceSufficient(set, {}); },
               erase = [this](Set set) { adapter.EraseCorrectionSet(set); },
               restore = [this](const Set&set) { adapter.RestoreFactorySettings(set); };
};
