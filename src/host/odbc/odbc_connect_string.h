#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace headerdtc {

// An ODBC connect string, "DSN=Orvane;UID=a;PWD={b;c}", taken apart. Drivers know some keywords
// under several names (PWD, Password); those count as the same, without regard to case.
class OdbcConnectString {
  public:
    explicit OdbcConnectString(std::string_view text);

    // The first value of a keyword, without braces; empty when it is not given or is empty.
    std::string value(std::string_view keyword) const;
    // The same under this one name, for a driver that knows no other.
    std::string valueNamed(std::string_view keyword) const;
    // The first keyword that, or whose value, has more bytes than that; empty when none has.
    std::string keywordBeyond(std::size_t bytes) const;
    // Takes a keyword out, under all of its names.
    void remove(std::string_view keyword);
    // Adds a value at the end, in braces where it needs them.
    void add(std::string_view keyword, std::string_view value);
    // The parts that were not removed, as they were written, then those that were added.
    std::string text() const;

  private:
    struct Part {
        std::string keyword;
        std::string value;
        std::string written;
    };
    template <class Is>
    std::string valueWhere(Is&& is) const;

    std::vector<Part> parts_;
};

// Two names of one keyword.
bool sameKeyword(std::string_view a, std::string_view b);

}  // namespace headerdtc
