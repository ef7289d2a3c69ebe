#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace headerdtc {

// Keeps a handler subscribed for as long as it lives. Movable, not copyable; may outlive the
// event.
class Subscription {
  public:
    Subscription() = default;
    explicit Subscription(std::function<void()> cancel) : cancel_(std::move(cancel)) {}
    Subscription(Subscription&& other) noexcept : cancel_(std::exchange(other.cancel_, nullptr)) {}
    Subscription& operator=(Subscription&& other) noexcept {
        Subscription(std::move(other)).cancel_.swap(cancel_);
        return *this;
    }
    ~Subscription() {
        if (cancel_) cancel_();
    }

  private:
    std::function<void()> cancel_;
};

// The subscriptions of one listener.
class Subscriptions {
  public:
    Subscriptions& operator+=(Subscription subscription) {
        list_.push_back(std::move(subscription));
        return *this;
    }
    void clear() { list_.clear(); }

  private:
    std::vector<Subscription> list_;
};

// An event of a control model. Handlers run in the order of subscription, synchronously; a
// failure thrown by one leaves the event to whoever raised it, and the handlers after it are not
// called. Handlers may subscribe, cancel, raise the event again and destroy it while it is being
// raised: a new one is called from the next raising on, a cancelled one no more.
template <class... Args>
class Event {
  public:
    using Handler = std::function<void(Args...)>;

    Event() = default;
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;

    [[nodiscard]] Subscription subscribe(Handler handler) {
        if (!state_) state_ = std::make_shared<State>();
        const auto slot = std::make_shared<Slot>(std::move(handler));
        state_->slots.push_back(slot);
        return Subscription([state = std::weak_ptr(state_), slot = std::weak_ptr(slot)] {
            const auto cancelled = slot.lock();
            const auto left = state.lock();
            if (!cancelled || !left) return;
            cancelled->active = false;
            left->cancelled = true;
            left->tidy();
        });
    }

    void raise(Args... args) const {
        if (!state_ || state_->slots.empty()) return;
        const Raising raising(state_);
        auto& slots = raising.state->slots;
        for (std::size_t i = 0, count = slots.size(); i < count; ++i) {
            // Kept here: a handler that subscribes makes the list move.
            const std::shared_ptr<Slot> slot = slots[i];
            if (slot->active) slot->handler(args...);
        }
    }

  private:
    struct Slot {
        explicit Slot(Handler handlerOfSlot) : handler(std::move(handlerOfSlot)) {}
        Handler handler;
        bool active = true;
    };
    struct State {
        std::vector<std::shared_ptr<Slot>> slots;
        int raisings = 0;        // under way, one inside the other
        bool cancelled = false;  // slots that are no longer active may be there

        void tidy() {
            if (!cancelled || raisings > 0) return;
            cancelled = false;
            const auto gone = std::stable_partition(slots.begin(), slots.end(),
                                                    [](const auto& slot) { return slot->active; });
            // Destroyed last: what a handler holds may itself be a subscription to this event.
            const std::vector<std::shared_ptr<Slot>> dying(gone, slots.end());
            slots.erase(gone, slots.end());
        }
    };
    struct Raising {
        explicit Raising(std::shared_ptr<State> raised) : state(std::move(raised)) {
            ++state->raisings;
        }
        Raising(const Raising&) = delete;
        Raising& operator=(const Raising&) = delete;
        ~Raising() {
            --state->raisings;
            state->tidy();
        }
        const std::shared_ptr<State> state;
    };

    // Made by the first subscriber: a control has many events, most of which nobody listens to.
    std::shared_ptr<State> state_;
};

}  // namespace headerdtc
