#include "core/stored_values.h"

#include "platform/runtime_error.h"
#include "platform/text.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <string_view>

namespace headerdtc {
namespace {

// The number that a whole text stands for. Raises 13 when it is none.
double numberIn(std::string_view text) {
    text = trimBlanks(text);
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    // Another sign, and the names of infinity and its like, are numbers to the library only.
    if (text.find_first_of("0123456789.") != 0) throw RuntimeError(ErrorNumber::TypeMismatch);
    double number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, failure] = std::from_chars(text.data(), end, number);
    if (stop != end || failure == std::errc::invalid_argument)
        throw RuntimeError(ErrorNumber::TypeMismatch);
    if (failure == std::errc::result_out_of_range) throw RuntimeError(ErrorNumber::Overflow);
    return negative ? -number : number;
}

// To the nearest whole number, a half to the even one.
double rounded(double number) {
    const double below = std::floor(number);
    const double fraction = number - below;
    if (fraction != 0.5) return fraction < 0.5 ? below : below + 1;
    return std::fmod(below, 2) == 0 ? below : below + 1;
}

}  // namespace

bool toBoolean(const PropertyValue& value) {
    if (const auto* flag = std::get_if<bool>(&value)) return *flag;
    if (const auto* number = std::get_if<std::int16_t>(&value)) return *number != 0;
    const std::string_view text = trimBlanks(std::get<std::string>(value));
    if (equalIgnoringCase(text, "True")) return true;
    if (equalIgnoringCase(text, "False")) return false;
    return numberIn(text) != 0;
}

std::int16_t toInteger(const PropertyValue& value) {
    if (const auto* number = std::get_if<std::int16_t>(&value)) return *number;
    if (const auto* flag = std::get_if<bool>(&value)) return *flag ? -1 : 0;
    const double number = rounded(numberIn(std::get<std::string>(value)));
    if (number < std::numeric_limits<std::int16_t>::min() ||
        number > std::numeric_limits<std::int16_t>::max()) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    return static_cast<std::int16_t>(number);
}

std::string toText(PropertyValue value) {
    if (auto* text = std::get_if<std::string>(&value)) return std::move(*text);
    if (const auto* flag = std::get_if<bool>(&value)) return *flag ? "True" : "False";
    return std::to_string(std::get<std::int16_t>(value));
}

}  // namespace headerdtc
