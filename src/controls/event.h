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
    // The place of a handler in its event.
    class Slot {
      public:
        virtual ~Slot() = default;
        virtual void cancel() = 0;
    };

    Subscription() = default;
    explicit Subscription(std::weak_ptr<Slot> slot) : slot_(std::move(slot)) {}
    Subscription(Subscription&&) noexcept = default;
    Subscription& operator=(Subscription&& other) noexcept {
        Subscription(std::move(other)).slot_.swap(slot_);
        return *this;
    }
    ~Subscription() {
        if (const auto slot = slot_.lock()) slot->cancel();
    }

  private:
    std::weak_ptr<Slot> slot_;
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
        state_->slots.push_back(std::make_shared<Slot>(state_, std::move(handler)));
        return Subscription(state_->slots.back());
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
    struct State;
    struct Slot : Subscription::Slot {
        Slot(std::weak_ptr<State> ofState, Handler ofSlot)
            : state(std::move(ofState)), handler(std::move(ofSlot)) {}
        void cancel() override {
            active = false;
            if (const auto left = state.lock()) left->remove(this);
        }
        const std::weak_ptr<State> state;
        const Handler handler;
        bool active = true;
    };
    struct State {
        std::vector<std::shared_ptr<Slot>> slots;
        int raisings = 0;        // under way, one inside the other
        bool cancelled = false;  // slots that are no longer active may be there

        // The caller keeps the slot: what its handler holds may itself be a subscription to this
        // event, and is destroyed last.
        void remove(const Slot* gone) {
            if (raisings > 0) {
                cancelled = true;
                return;
            }
            const auto place = std::find_if(slots.begin(), slots.end(), [gone](const auto& slot) {
                return slot.get() == gone;
            });
            if (place != slots.end()) slots.erase(place);
        }
        void tidy() {
            if (!cancelled || raisings > 0) return;
            cancelled = false;
            const auto gone = std::stable_partition(slots.begin(), slots.end(),
                                                    [](const auto& slot) { return slot->active; });
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
