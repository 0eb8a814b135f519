// Tests of the static data registry.
#include "StaticData.h"
#include "FailingAllocation.h"
#include "Failure.h"
#include "Logger.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <thread>
#include <vector>

using KTR::System::StaticData;

namespace
{

bool g_tell = false; // what happens at the end of the process goes to standard error

// A slot for each number. Tells of its end, and may use another slot then.
template <int Number> struct Data
{
    ~Data()
    {
        g_tell ? std::fprintf(stderr, "%d gone;", Number) : 0;
        atEnd();
    }
    static boost::shared_ptr<Data> access() { return StaticData::Access<Data>(slot); }
    static inline void* slot = nullptr;
    void (*atEnd)() = [] {};
    int used = 0;
};

// Lives from before main until after the exit handlers of main.
const struct StaticUser
{
    StaticUser() { Data<0>::access()->used = 7; }
    ~StaticUser() { g_tell ? std::fprintf(stderr, "used %d;", Data<0>::access()->used) : 0; }
} User;

// Takes its time, and fails the first two times.
struct Slow
{
    Slow()
    {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        if (++made <= 2)
        {
            throw KTR::System::Exception("Not yet.", true);
        }
    }
    static inline std::atomic<int> made{0};
    static inline void* slot = nullptr;
};

} // namespace

TEST(StaticDataDeathTest, DiesLastMadeFirstAfterTheStaticObjectsThatUseIt)
{
    const auto run = []
    {
        g_tell = true;
        Data<1>::access()->used = 1;
        Data<2>::access()->atEnd = [] { std::fprintf(stderr, "sees %d;", Data<1>::access()->used); };
        Data<3>::access()->atEnd = [] { Data<4>::access(); }; // made during the shut-down
        std::exit(0);
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(0), "^used 7;3 gone;4 gone;2 gone;sees 1;1 gone;0 gone;$");
}

// Eight threads race for one slot; two of them fail to make the data, and those that wait take over.
TEST(StaticData, IsMadeOnceByOneOfManyThreads)
{
    std::atomic<int> failures{0};
    std::vector<boost::shared_ptr<Slow>> results(8);
    std::vector<std::thread> threads;
    threads.reserve(results.size());
    const auto access = [&](boost::shared_ptr<Slow>& result)
    { failures += FailureOf([&] { result = StaticData::Access<Slow>(Slow::slot); }) == "Not yet." ? 1 : 0; };
    for (auto& result : results)
    {
        threads.emplace_back(access, std::ref(result));
    }
    std::for_each(threads.begin(), threads.end(), [](std::thread& thread) { thread.join(); });
    EXPECT_EQ(failures, 2);
    EXPECT_EQ(Slow::made, 3);
    EXPECT_EQ(std::count(results.begin(), results.end(), StaticData::Access<Slow>(Slow::slot)), 6);
}

TEST(StaticData, SurvivesFailedAllocations)
{
    const char* const texts[] = {"Could not allocate static data container.", "Could not allocate static data."};
    KTR::Tools::Logger::LogMessage("the logger's own data is there before");
    for (unsigned number : {1U, 2U})
    {
        FailNothrowNew(number);
        EXPECT_EQ(FailureOf([] { Data<5>::access(); }), texts[number - 1]);
        EXPECT_EQ(Data<5>::slot, nullptr);
    }
    EXPECT_TRUE(Data<5>::access());
}
