#include "core/property_table.h"

#include "platform/runtime_error.h"
#include "platform/text.h"

#include <algorithm>
#include <iterator>

namespace headerdtc {
namespace {

using Getter = PublicValue (*)(const HeaderDTC&, int index);
using Setter = void (*)(HeaderDTC&, int index, const PublicValue&);

struct Accessors {
    Getter get;
    Setter set;  // nullptr: read-only
};

template <class Value>
const Value& as(const PublicValue& value) {
    const auto* held = std::get_if<Value>(&value);
    if (!held) throw RuntimeError(ErrorNumber::TypeMismatch);
    return *held;
}

int asInteger(const PublicValue& value) {
    return toInt16(as<std::int64_t>(value));
}

PublicValue publicValue(int number) {
    return std::int64_t{number};
}

PublicValue publicValue(PublicValue value) {
    return value;
}

// Row by row beside each other: what a property is, and how it is reached.
constexpr PropertyInfo Infos[] = {
#define HEADERDTC_INDEXED_TEXT(name, ...) {#name, PropertyType::Text, true, true},
#define HEADERDTC_COUNT(name, ...) {#name, PropertyType::Integer, false, false},
#define HEADERDTC_ROW_COUNT(name, ...) {#name, PropertyType::Integer, false, true},
#define HEADERDTC_TEXT(name, ...) {#name, PropertyType::Text, false, true},
#define HEADERDTC_SCRIPTS(name, ...) {#name, PropertyType::Scripts, false, true},
#define HEADERDTC_NUMBER(name, ...) {#name, PropertyType::Integer, false, true},
#include "core/properties.def"
};

constexpr Accessors Access[] = {
#define HEADERDTC_GET(call) \
    [](const HeaderDTC& dtc, [[maybe_unused]] int index) { return publicValue(call); }
#define HEADERDTC_SET(call) \
    [](HeaderDTC& dtc, [[maybe_unused]] int index, const PublicValue& value) { call; }
#define HEADERDTC_INDEXED_TEXT(name, ...) \
    {HEADERDTC_GET(dtc.name(index)), HEADERDTC_SET(dtc.name(index, as<std::string>(value)))},
#define HEADERDTC_COUNT(name, ...) {HEADERDTC_GET(dtc.name()), nullptr},
#define HEADERDTC_ROW_COUNT(name, ...) \
    {HEADERDTC_GET(dtc.name()), HEADERDTC_SET(dtc.name(asInteger(value)))},
#define HEADERDTC_TEXT(name, ...) \
    {HEADERDTC_GET(dtc.name()), HEADERDTC_SET(dtc.name(as<std::string>(value)))},
#define HEADERDTC_SCRIPTS(name, ...) \
    {HEADERDTC_GET(dtc.name()),      \
     HEADERDTC_SET(dtc.name(as<std::shared_ptr<ScriptDictionary>>(value)))},
#define HEADERDTC_NUMBER(name, ...) \
    {HEADERDTC_GET(dtc.name()), HEADERDTC_SET(dtc.name(asInteger(value)))},
#include "core/properties.def"
#undef HEADERDTC_GET
#undef HEADERDTC_SET
};

static_assert(std::size(Infos) == std::size(Access));

// The place of a property in the table, after the checks that every use makes.
std::size_t find(std::string_view name, std::optional<int> index) {
    const auto* found = std::find_if(std::begin(Infos), std::end(Infos),
                                     [&](const PropertyInfo& info) { return info.name == name; });
    if (found == std::end(Infos))
        throw RuntimeError(ErrorNumber::NoSuchProperty, std::string(name));
    if (found->indexed != index.has_value())
        throw RuntimeError(ErrorNumber::WrongNumberOfArguments, std::string(name));
    return static_cast<std::size_t>(found - std::begin(Infos));
}

}  // namespace

std::span<const PropertyInfo> publicProperties() {
    return Infos;
}

PublicValue getProperty(const HeaderDTC& dtc, std::string_view name, std::optional<int> index) {
    return Access[find(name, index)].get(dtc, index.value_or(0));
}

void setProperty(HeaderDTC& dtc, std::string_view name, std::optional<int> index,
                 const PublicValue& value) {
    const Setter set = Access[find(name, index)].set;
    if (!set) throw RuntimeError(ErrorNumber::PropertyIsReadOnly, std::string(name));
    set(dtc, index.value_or(0), value);
}

}  // namespace headerdtc
