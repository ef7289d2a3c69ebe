#include "qt/surface/action_runner.h"

#include "controls/control.h"
#include "platform/runtime_error.h"

namespace headerdtc::qt {

void ActionRunner::run(const std::function<void()>& action) {
    ++depth_;
    try {
        action();
    } catch (const ActionRefused&) {
        // The window offered something that the model knows cannot be done now.
    } catch (...) {
        if (onFailure) onFailure(std::current_exception());
    }
    --depth_;
    if (onDone) onDone();
}

std::string failureText(const std::exception_ptr& failure) {
    try {
        std::rethrow_exception(failure);
    } catch (const RuntimeError& error) {
        return "Run-time error '" + std::to_string(error.number()) + "': " + error.description();
    } catch (const std::exception& error) {
        return std::string("Unexpected failure: ") + error.what();
    } catch (...) {
        return "Unexpected failure";
    }
}

}  // namespace headerdtc::qt
