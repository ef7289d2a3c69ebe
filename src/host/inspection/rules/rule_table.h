#pragma once

#include "host/inspection/page_view.h"

#include <span>
#include <string_view>

namespace headerdtc {

// A rule that pages are checked against.
struct Rule {
    std::string_view id;
    std::string_view summary;  // one line, what it finds
    void (*check)(const ControlView&, Remarks&);
    Severity severity;
    // A page may be left alone for what other rules have found already.
    enum class Finds { Fault, CauseOfFailure, Consequence };
    Finds finds = Finds::Fault;
};

// All of them, in the order in which they are applied.
std::span<const Rule> inspectionRules();

}  // namespace headerdtc
