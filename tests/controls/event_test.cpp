#include "controls/event.h"

#include "support/prologue.h"

namespace headerdtc::event_test {

class EventTest : public Test {
  protected:
    Subscription log(const char* name) {
        return event.subscribe([this, name] { calls += name; });
    }
    std::string callsOfRaising() {
        calls.clear();
        event.raise();
        return calls;
    }
    Event<> event;
    std::string calls;
};

TEST_F(EventTest, HandlersRunInTheOrderOfSubscriptionUntilOneFails) {
    const auto a = log("a");
    const auto failing = event.subscribe([] { throw std::runtime_error("failed"); });
    const auto b = log("b");
    EXPECT_THROW(event.raise(), std::runtime_error);
    EXPECT_THROW(event.raise(), std::runtime_error);
    EXPECT_EQ(calls, "aa");
}

TEST_F(EventTest, AHandlerAddedWhileTheEventIsRaisedIsCalledFromTheNextTimeOn) {
    Subscriptions added;
    const auto a = event.subscribe([&] {
        calls += "a";
        for (int i = 0; i < 20; ++i)
            added += log("n");
    });
    EXPECT_EQ(callsOfRaising(), "a");
    added.clear();
    added += log("b");
    EXPECT_EQ(callsOfRaising(), "ab");
}

TEST_F(EventTest, ACancelledHandlerIsNotCalledAgainNotEvenInTheSameRaising) {
    std::optional<Subscription> later;
    std::optional<Subscription> itself = event.subscribe([&] {
        calls += "1";
        later.reset();
        itself.reset();
        calls += "2";  // what the handler holds is still there
    });
    later = log("x");
    const auto last = log("z");
    EXPECT_EQ(callsOfRaising(), "12z");
    EXPECT_EQ(callsOfRaising(), "z");
}

TEST_F(EventTest, RaisingItAgainInsideAHandlerReachesEveryHandler) {
    bool again = true;
    const auto a = event.subscribe([&] {
        calls += "a";
        if (std::exchange(again, false)) event.raise();
    });
    const auto b = log("b");
    EXPECT_EQ(callsOfRaising(), "aabb");
}

TEST_F(EventTest, AHandlerMayDestroyTheEventAndSubscriptionsMayOutliveIt) {
    auto dying = std::make_unique<Event<>>();
    const auto a = dying->subscribe([&] {
        dying.reset();
        calls += "a";
    });
    const auto b = dying->subscribe([&] { calls += "b"; });
    dying->raise();
    EXPECT_EQ(calls, "ab");
}

TEST_F(EventTest, AssigningASubscriptionCancelsTheOneBefore) {
    Subscription mine = log("a");
    mine = log("b");
    EXPECT_EQ(callsOfRaising(), "b");
    mine = Subscription();
    EXPECT_EQ(callsOfRaising(), "");
}

}  // namespace headerdtc::event_test
