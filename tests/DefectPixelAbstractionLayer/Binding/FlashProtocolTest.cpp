// The flash adapter on a simulated camera, through the camera API, with every access of the protocol broken in turn.
#include "DpcAdapterQuorsalinWithPython.h"
#include "Failure.h"
#include "PixelDefect.h"
#include "TestRig.h"
#include "ZltCamera.h"

#include <boost/make_shared.hpp>

#include <thread>
#include <tuple>

using KTR::DPC::DpcAdapterQuorsalinWithPython;

namespace
{

constexpr std::chrono::milliseconds PollPeriod{1};

KTR::DPC::SensorDefectList pixels(std::uint32_t count)
{
    KTR::DPC::SensorDefectList list;
    for (std::uint32_t i = 0; i < count; ++i)
    {
        list.push_back(boost::make_shared<KTR::DPC::PixelDefect>(i * 2 % 64, i / 32));
    }
    return list;
}

bool same(const KTR::DPC::SensorDefectList& left, const KTR::DPC::SensorDefectList& right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](const auto& a, const auto& b) { return *a == *b; });
}

} // namespace

TEST(FlashProtocol, BrokenAtEveryAccessInTurn)
{
    const auto list = pixels(130);
    int broken = 0;
    for (const auto& [operation, effect, step] : {std::tuple("ReadMemory", R"("code": -13)", 1),
                                                  {"WriteMemory", R"("code": -13)", 1},
                                                  {"ReadMemory", R"("unplug": true)", 9},
                                                  {"WriteMemory", R"("unplug": true)", 9}})
    {
        const bool isGone = step > 1;
        bool isHit = true;
        for (int call = 1; isHit; call += step)
        {
            Simulation::TestRig rig(R"({"firmware": "flash", "reverseX": false, "reverseY": false, "flashTime": 2,
                "faults": {"operation": ")" +
                                    std::string(operation) + R"(", "call": )" + std::to_string(call) + ", " + effect +
                                    "}}");
            const auto camera = boost::make_shared<KTR::DPC::ZltCamera>(rig.Opened());
            const auto use = [&]
            {
                DpcAdapterQuorsalinWithPython adapter(camera, PollPeriod);
                const auto set = adapter.GetDefaultCorrectionSet();
                adapter.WriteCorrectionSet(set, list);
                EXPECT_TRUE(same(adapter.ReadCorrectionSet(set), list)) << operation << call;
                adapter.RestoreFactorySettings(set);
            };
            const std::string failure = FailureOf(use);
            isHit = !failure.empty();
            broken += isHit ? 1 : 0;
            std::this_thread::sleep_for(5 * PollPeriod); // the camera comes to an end with what it was told
            if (isHit)
            {
                EXPECT_EQ(FailureOf(use).empty(), !isGone) << "after " << failure << " at " << operation << call;
            }
        }
    }
    RecordProperty("broken", broken);
    EXPECT_GT(broken, 120); // so many accesses there are at least, and more while the camera is busy
}
