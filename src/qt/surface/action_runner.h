#pragma once

#include <exception>
#include <functional>
#include <string>

namespace headerdtc::qt {

// Runs what a person does at one form on its models. No exception may pass through Qt's event loop,
// so they end here: refused actions are dropped, and what a handler throws goes to onFailure.
class ActionRunner {
  public:
    void run(const std::function<void()>& action);
    // An action is running, perhaps waiting for a dialog that it opened.
    bool isRunning() const { return depth_ > 0; }

    std::function<void(const std::exception_ptr&)> onFailure;
    // After each action, failed or not.
    std::function<void()> onDone;

  private:
    int depth_ = 0;
};

// What a person reads of a failure that no handler has trapped.
std::string failureText(const std::exception_ptr& failure);

}  // namespace headerdtc::qt
