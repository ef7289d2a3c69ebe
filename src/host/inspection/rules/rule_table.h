#pragma once

#include "host/inspection/page_view.h"

#include <span>
#include <string_view>

namespace headerdtc {

// A rule that pages are checked against.
struct Rule {
    std::string_view id;
    std::string_view summary;      // one line, what it finds
    std::string_view explanation;  // why that is a fault, and what to do
    void (*check)(const ControlView&, Remarks&);
    Severity severity;
    // A page may be left alone because of a fault that another rule has reported already.
    enum class Finds { Fault, CauseOfFailure, Consequence };
    Finds finds = Finds::Fault;
};

// The two rules of the page as a whole; what they find is also the page's state.
inline constexpr std::string_view NotGeneratedRule = "not-generated";
inline constexpr std::string_view StaleRule = "stale";

// All of them, in the order in which they are applied.
std::span<const Rule> inspectionRules();

}  // namespace headerdtc
