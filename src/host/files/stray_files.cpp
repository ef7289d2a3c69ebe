#include "host/files/stray_files.h"

#include <atomic>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdint>
#include <exception>
#include <fcntl.h>
#include <mutex>
#include <optional>
#include <random>
#include <set>
#include <string_view>
#include <sys/file.h>
#include <unistd.h>

namespace headerdtc {
namespace {

constexpr std::string_view Prefix = ".headerdtc-";
constexpr std::string_view Suffix = ".tmp";

// The numbers that this process gives. Where they begin differs from process to process: in
// containers each run may have the same id as the one that was killed before.
struct Numbers {
    const std::uint32_t first = std::random_device()() >> 1U;
    std::atomic<std::uint32_t> next{first};

    bool wasGiven(std::uint32_t number) const { return number >= first && number < next; }
};

Numbers& numbers() {
    static Numbers own;
    return own;
}

template <class Number>
std::optional<Number> takeNumber(std::string_view& text) {
    Number number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc()) return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return number;
}

// What a name of our making says.
struct Maker {
    pid_t process;
    std::uint32_t number;

    bool isGone() const {
        if (process == getpid()) return !numbers().wasGiven(number);
        return kill(process, 0) != 0 && errno == ESRCH;
    }
};

std::optional<Maker> makerOf(std::string_view name) {
    if (!name.starts_with(Prefix) || !name.ends_with(Suffix)) return std::nullopt;
    name.remove_prefix(Prefix.size());
    const auto process = takeNumber<pid_t>(name);
    if (!process || *process <= 0 || !name.starts_with('-')) return std::nullopt;
    name.remove_prefix(1);
    const auto number = takeNumber<std::uint32_t>(name);
    return number && name == Suffix ? std::optional(Maker{*process, *number}) : std::nullopt;
}

// A process in another container or on another machine cannot be seen from here, but its lock can.
bool isLocked(const std::filesystem::path& file) {
    const int descriptor = open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (descriptor < 0) return false;
    const bool locked = flock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    close(descriptor);
    return locked;
}

bool isFirstLook(const std::filesystem::path& folder) {
    static std::mutex mutex;
    static std::set<std::filesystem::path> seen;
    const std::lock_guard lock(mutex);
    return seen.insert(folder).second;
}

}  // namespace

std::string newFileName() {
    std::string name(Prefix);
    name.append(std::to_string(getpid())).append("-").append(std::to_string(numbers().next++));
    return name.append(Suffix);
}

void removeStrayFiles(const std::filesystem::path& folder) noexcept {
    try {
        if (!isFirstLook(folder)) return;
        std::error_code ignored;
        std::filesystem::directory_iterator entry(folder, ignored);
        for (; !ignored && entry != std::filesystem::directory_iterator();
             entry.increment(ignored)) {
            const auto maker = makerOf(entry->path().filename().native());
            if (maker && maker->isGone() && !isLocked(entry->path())) unlink(entry->path().c_str());
        }
    } catch (const std::exception&) {
        // The stray files stay for another time.
        return;
    }
}

}  // namespace headerdtc
