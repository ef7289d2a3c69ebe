// What the command ends with where it lacks the memory to go on, wherever that is: in a thread,
// before main, or where there is no room left for an exception.

#include "cli/command.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <exception>
#include <new>
#include <string_view>
#include <unistd.h>

namespace headerdtc::cli {
namespace {

bool isShortage(const std::exception_ptr& failure) {
    if (!failure) return true;
    try {
        std::rethrow_exception(failure);
    } catch (const std::bad_alloc&) {
        return true;
    } catch (...) {
        return false;
    }
}

// Pages stay whole: each is replaced in one step. What lies beside them for that is removed by the
// next run.
[[noreturn]] void end() {
    if (!isShortage(std::current_exception())) std::abort();
    constexpr std::string_view Message = "headerdtc: there is not enough memory\n";
    static_cast<void>(!write(STDERR_FILENO, Message.data(), Message.size()));
    _exit(PageNotDone);
}

// Static objects take memory too; this comes before the first of them.
[[gnu::constructor(101)]] void takePrecautions() {
    std::set_terminate(end);
}

}  // namespace
}  // namespace headerdtc::cli

#ifdef HEADERDTC_MIMALLOC

// The allocator's own operators end the program where there is no memory, since it is written in C
// and can throw nothing.

void* operator new(std::size_t size) {
    if (void* memory = std::malloc(std::max<std::size_t>(size, 1))) return memory;
    throw std::bad_alloc();
}
void* operator new[](std::size_t size) {
    return operator new(size);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}

#endif
