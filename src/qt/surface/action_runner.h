#pragma once

#include <exception>
#include <functional>
#include <string>

namespace headerdtc::qt {

// Runs what the person at one form does to its models. No failure may pass through Qt's event
// loop, so this is where they end: what a person cannot do is left undone, and what a handler lets
// out goes to onFailure.
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
