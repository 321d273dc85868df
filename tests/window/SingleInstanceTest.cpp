#include "window/SingleInstance.h"

#include "support/EventLoop.h"
#include "support/SystemSettings.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <future>

namespace lumeo {
namespace {

using testing::waitUntil;

/// Starts of the program that share a folder for sockets.
class SingleInstanceTest : public ::testing::Test {
protected:
    /// Another start, as it would be in a process of its own; whether that one may run.
    static bool startAgain() {
        auto start = std::async(std::launch::async, [] {
            SingleInstance again(QStringLiteral("program"));
            return again.claim();
        });
        EXPECT_TRUE(
            waitUntil([&] { return start.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }));
        return start.get();
    }

    TempFolder folder_;
    ScopedEnvironment sockets_{"XDG_RUNTIME_DIR", folder_.path().bytes().c_str()};
};

TEST_F(SingleInstanceTest, IsToldOfASecondStartWhichThenEnds) {
    SingleInstance first(QStringLiteral("program"));
    int starts = 0;
    QObject::connect(&first, &SingleInstance::startedAgain, [&] { ++starts; });
    ASSERT_TRUE(first.claim());
    EXPECT_FALSE(startAgain());
    EXPECT_FALSE(startAgain());
    EXPECT_TRUE(waitUntil([&] { return starts == 2; }));
    EXPECT_TRUE(SingleInstance(QStringLiteral("another program")).claim());
}

TEST_F(SingleInstanceTest, TakesThePlaceOfOneThatCrashed) {
    folder_.write("program", "what a crash leaves behind");
    SingleInstance first(QStringLiteral("program"));
    EXPECT_TRUE(first.claim());
    EXPECT_FALSE(startAgain());
}

TEST_F(SingleInstanceTest, RunsAllTheSameWhereNoSocketCanBe) {
    const ScopedEnvironment nowhere{"XDG_RUNTIME_DIR", "/no/such/folder"};
    EXPECT_TRUE(SingleInstance(QStringLiteral("program")).claim());
}

} // namespace
} // namespace lumeo
