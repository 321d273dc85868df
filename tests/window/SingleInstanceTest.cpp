#include "window/SingleInstance.h"

#include "support/EventLoop.h"
#include "support/SystemSettings.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <future>
#include <thread>
#include <vector>

namespace lumeo {
namespace {

using testing::waitUntil;

/// Several starts of the program that share a folder for sockets.
class SingleInstanceTest : public ::testing::Test {
protected:
    /// Another start, as if in its own process. The result is whether that one may run.
    static std::future<bool> starting(const Start& start, std::chrono::milliseconds patience) {
        return std::async(std::launch::async, [start, patience] {
            SingleInstance again(QStringLiteral("program"));
            return again.claim(start, patience);
        });
    }
    static bool startAgain(const Start& start = {},
                           std::chrono::milliseconds patience = std::chrono::minutes(1)) {
        auto again = starting(start, patience);
        EXPECT_TRUE(
            waitUntil([&] { return again.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }));
        return again.get();
    }

    TempFolder folder_;
    ScopedEnvironment sockets_{"XDG_RUNTIME_DIR", folder_.path().bytes().c_str()};
};

TEST_F(SingleInstanceTest, IsToldOfASecondStartWhichThenEnds) {
    SingleInstance first(QStringLiteral("program"));
    std::vector<Start> starts;
    QObject::connect(&first, &SingleInstance::startedAgain,
                     [&](const Start& start) { starts.push_back(start); });
    ASSERT_TRUE(first.claim({}));
    EXPECT_FALSE(startAgain());
    EXPECT_FALSE(startAgain({.showsSettings = true, .activationToken = "token"}));
    ASSERT_EQ(starts.size(), 2U);
    EXPECT_FALSE(starts[0].showsSettings);
    EXPECT_TRUE(starts[1].showsSettings);
    EXPECT_EQ(starts[1].activationToken, "token");
    EXPECT_TRUE(SingleInstance(QStringLiteral("another program")).claim({}));
}

TEST_F(SingleInstanceTest, LetsOneMoreRunWhereTheFirstHangsAndNotOneForEachStart) {
    std::promise<void> begun;
    std::promise<void> end;
    std::thread hanging([&] {
        SingleInstance first(QStringLiteral("program"));
        EXPECT_TRUE(first.claim({}));
        begun.set_value();
        end.get_future().wait(); // handles no event meanwhile
    });
    begun.get_future().wait();
    const auto patience = std::chrono::milliseconds(300);
    SingleInstance second(QStringLiteral("program"));
    EXPECT_TRUE(second.claim({}, patience));
    EXPECT_FALSE(startAgain({}, patience)) << "the second one answers";
    end.set_value();
    hanging.join();
}

TEST_F(SingleInstanceTest, TakesThePlaceOfOneThatCrashed) {
    folder_.write("program", "what a crash leaves behind");
    SingleInstance first(QStringLiteral("program"));
    EXPECT_TRUE(first.claim({}));
    EXPECT_FALSE(startAgain());
}

TEST_F(SingleInstanceTest, RunsAllTheSameWhereNoSocketCanBe) {
    const ScopedEnvironment nowhere{"XDG_RUNTIME_DIR", "/no/such/folder"};
    EXPECT_TRUE(SingleInstance(QStringLiteral("program")).claim({}));
}

} // namespace
} // namespace lumeo
