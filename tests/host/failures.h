#pragma once

#include "support/prologue.h"
#include "support/temp_folder.h"

#include <functional>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace headerdtc::testing {

// Runs something as another user than root, whom no permission stops; gives what it returns (0 to
// 255). It must not fail fatally inside.
inline int asPlainUser(const std::function<int()>& action) {
    const pid_t child = fork();
    if (child == 0) {
        constexpr uid_t Nobody = 65534;
        if (geteuid() == 0 && (setgid(Nobody) != 0 || setuid(Nobody) != 0)) _exit(250);
        int result = 251;
        try {
            result = action();
        } catch (...) {
        }
        _exit(result);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 252;
}

// The text of what an action throws, empty when it throws nothing.
template <class Error>
std::string errorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const Error& error) {
        return error.what();
    }
    return {};
}

}  // namespace headerdtc::testing
