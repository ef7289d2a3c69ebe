#include "host/files/stray_files.h"

#include <atomic>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <exception>
#include <fcntl.h>
#include <mutex>
#include <optional>
#include <set>
#include <string_view>
#include <sys/file.h>
#include <unistd.h>

namespace headerdtc {
namespace {

constexpr std::string_view Prefix = ".headerdtc-";
constexpr std::string_view Suffix = ".tmp";

std::optional<pid_t> takeNumber(std::string_view& text) {
    pid_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc()) return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return number;
}

// The process that a name belongs to; nothing for a name that is not of our making.
std::optional<pid_t> processOf(std::string_view name) {
    if (!name.starts_with(Prefix) || !name.ends_with(Suffix)) return std::nullopt;
    name.remove_prefix(Prefix.size());
    const auto process = takeNumber(name);
    if (!process || *process <= 0 || !name.starts_with('-')) return std::nullopt;
    name.remove_prefix(1);
    return takeNumber(name) && name == Suffix ? process : std::nullopt;
}

bool isGone(pid_t process) {
    return kill(process, 0) != 0 && errno == ESRCH;
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
    static std::atomic<unsigned> last{0};
    std::string name(Prefix);
    name.append(std::to_string(getpid())).append("-").append(std::to_string(++last));
    return name.append(Suffix);
}

void removeStrayFiles(const std::filesystem::path& folder) noexcept {
    try {
        if (!isFirstLook(folder)) return;
        std::error_code ignored;
        std::filesystem::directory_iterator entry(folder, ignored);
        for (; !ignored && entry != std::filesystem::directory_iterator();
             entry.increment(ignored)) {
            const auto process = processOf(entry->path().filename().native());
            if (process && isGone(*process) && !isLocked(entry->path()))
                unlink(entry->path().c_str());
        }
    } catch (const std::exception&) {
        // The stray files stay for another time.
        return;
    }
}

}  // namespace headerdtc
