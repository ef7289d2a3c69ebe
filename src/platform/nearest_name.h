#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace headerdtc {

// Of the names offered the one that somebody may have meant who wrote another: few letters have to
// be added, removed, replaced or swapped with the next; case does not count. Of equally near ones
// the first.
class NearestName {
  public:
    explicit NearestName(std::string_view written);

    void offer(std::string_view name);
    // Empty when none is near.
    const std::string& found() const { return found_; }
    // "; did you mean 'check'?", to be put behind what is wrong; empty when none is near.
    std::string question() const;

  private:
    std::string written_;  // upper case
    std::size_t nearest_;  // a name has to be nearer than that
    std::string found_;
};

}  // namespace headerdtc
