#pragma once

#include "runtime/expansion.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace headerdtc::testing {

inline bool equalButForCase(char a, char b) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    return lower(a) == lower(b);
}

// One replacement step in the most obvious way: what Expansion has to agree with.
inline std::string replacePlainly(std::string_view text, std::string_view placeholder,
                                  std::string_view value) {
    if (placeholder.empty()) return std::string(text);
    std::string result;
    for (auto at = text.begin();;) {
        const auto hit =
            std::search(at, text.end(), placeholder.begin(), placeholder.end(), equalButForCase);
        result.append(at, hit);
        if (hit == text.end()) return result;
        result += value;
        at = hit + static_cast<std::ptrdiff_t>(placeholder.size());
    }
}

// One text to expand, with its steps.
struct ExpansionCase {
    std::string text;
    std::vector<std::string> placeholders;
    std::vector<std::string> values;
};

// Expands both ways, comparing after every step when told to. Returns what differs, or nothing.
// Stops where the text grows beyond reason: values that bring in later placeholders multiply.
inline std::string differenceFromPlain(const ExpansionCase& input, bool afterEveryStep) {
    constexpr std::size_t LongestText = 20'000;
    const std::vector<std::string_view> placeholders(input.placeholders.begin(),
                                                     input.placeholders.end());
    const ExpansionSteps steps(placeholders);
    Expansion expansion(input.text, steps);
    std::string plain = input.text;
    for (std::size_t step = 0; step < steps.count() && plain.size() <= LongestText; ++step) {
        const bool last = step + 1 == steps.count();
        expansion.replace(input.values[step]);
        plain = replacePlainly(plain, input.placeholders[step], input.values[step]);
        if (!afterEveryStep && !last && plain.size() <= LongestText) continue;
        if (const std::string text = expansion.text(); text != plain)
            return "after step " + std::to_string(step) + "\n  is        " + text +
                   "\n  should be " + plain;
    }
    return {};
}

}  // namespace headerdtc::testing
