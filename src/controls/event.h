#pragma once

#include <algorithm>
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
        std::swap(cancel_, other.cancel_);
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
// failure thrown by one leaves the event to whoever raised it. Handlers may subscribe and cancel
// while the event is being raised: a new one is called from the next raising on.
template <class... Args>
class Event {
  public:
    using Handler = std::function<void(Args...)>;

    Event() = default;
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;

    [[nodiscard]] Subscription subscribe(Handler handler) {
        if (!handlers_) handlers_ = std::make_shared<Handlers>();
        auto slot = std::make_shared<Handler>(std::move(handler));
        handlers_->push_back(slot);
        std::weak_ptr<Handlers> handlers = handlers_;
        return Subscription([handlers, slot] {
            *slot = nullptr;
            if (const auto list = handlers.lock()) std::erase(*list, slot);
        });
    }

    void raise(Args... args) const {
        if (!handlers_ || handlers_->empty()) return;
        const Handlers snapshot = *handlers_;
        for (const auto& slot : snapshot) {
            if (!*slot) continue;
            const Handler handler = *slot;
            handler(args...);
        }
    }

  private:
    using Handlers = std::vector<std::shared_ptr<Handler>>;
    // Made by the first subscriber: a control has many events, most of which nobody listens to.
    std::shared_ptr<Handlers> handlers_;
};

}  // namespace headerdtc
