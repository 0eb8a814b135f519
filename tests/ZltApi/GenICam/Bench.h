// A provider and the camera that it finds.
#pragma once

#include "../ProviderTools.h"
#include "FakeCamera.h"

#include "Provider/GenICamProvider.h"

#include <gtest/gtest.h>

#include <memory>

namespace GenICam
{

using namespace ProviderTest;

extern bool g_hasOwnNetwork;

struct Bench
{
    explicit Bench(std::unique_ptr<FakeCamera> camera = std::make_unique<FakeCamera>());
    ~Bench() { provider.Shutdown(); }

    ZltApi::CameraPtr Camera(); // null when it is not in the list
    ZltApi::CameraPtr Opened(); // with an expectation that it opens
    // 64 x 48 pixels, 500 frames a second.
    ZltApi::CameraPtr Small();

    EventLog events;
    GenICamProvider provider;
    std::unique_ptr<FakeCamera> fake;
};

} // namespace GenICam
