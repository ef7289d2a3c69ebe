#pragma once

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <optional>
#include <random>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace headerdtc::testing {

// What all programs here share: another program that is started and killed, and a clear end.

using Microseconds = std::chrono::microseconds;

[[noreturn]] inline void fail(const std::string& what) {
    throw std::runtime_error(what);
}

class StartedProgram {
  public:
    // `output` is where both of its outputs go.
    explicit StartedProgram(const std::vector<std::string>& command,
                            const std::string& output = "/dev/null")
        : process_(fork()) {
        if (process_ < 0) fail("no process can be started");
        if (process_ > 0) return;
        std::vector<char*> words;
        for (const std::string& word : command)
            words.push_back(const_cast<char*>(word.c_str()));
        words.push_back(nullptr);
        const int file = open(output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        dup2(file, STDOUT_FILENO);
        dup2(file, STDERR_FILENO);
        execv(words.front(), words.data());
        _exit(127);
    }
    StartedProgram(const StartedProgram&) = delete;
    StartedProgram& operator=(const StartedProgram&) = delete;

    // Its exit status.
    int finish() {
        waitpid(process_, &status_, 0);
        return WIFEXITED(status_) ? WEXITSTATUS(status_) : 128 + WTERMSIG(status_);
    }
    // Gives false when it had ended by then.
    bool killAfter(Microseconds time) {
        return killAfter(time, [] { return true; });
    }
    // Begins to wait when something has come about.
    template <class Condition>
    bool killAfter(Microseconds time, Condition condition) {
        while (!condition()) {
            if (waitpid(process_, &status_, WNOHANG) == process_) return false;
        }
        std::this_thread::sleep_for(time);
        kill(process_, SIGKILL);
        return finish() == 128 + SIGKILL;
    }

  private:
    pid_t process_;
    int status_ = 0;
};

// Random moments of a time that a program takes, a little more included. The same ones with each
// run, though what a program is doing then is not.
class RandomMoments {
  public:
    explicit RandomMoments(Microseconds all)
        : moment_(0, static_cast<long>(static_cast<double>(all.count()) * 1.1)) {}
    Microseconds next() { return Microseconds(moment_(random_)); }

  private:
    std::mt19937 random_{20260101};
    std::uniform_int_distribution<long> moment_;
};

template <class Body>
int reporting(Body body) {
    try {
        body();
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "FAILED: %s\n", error.what());
        return 1;
    }
}

}  // namespace headerdtc::testing
