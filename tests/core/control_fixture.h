#pragma once

#include "core/header_dtc.h"
#include "support/control_tools.h"
#include "support/fake_surroundings.h"
#include "support/prologue.h"

namespace headerdtc {

// One control that is not set up yet, over stand-ins for all that it asks of its surroundings.
struct BareControl {
    // What has come since the last call: properties that the host heard of, failures that were
    // reported, and all texts that were shown.
    std::vector<std::string> notices() { return std::exchange(outside.changes.changed, {}); }
    std::vector<std::string> errors() { return std::exchange(outside.messages.errors, {}); }
    std::vector<std::string> messages() { return std::exchange(outside.messages.shown, {}); }

    testing::FakeSurroundings outside;
    HeaderDTC dtc{outside.all(), outside.modalLoop};
};

// One set-up control with "Orders" and "Stock" as data providers, without any behaviours.
struct TestControl : BareControl {
    TestControl() {
        dtc.procedures.PrepareGeneralTab = [this] {
            fill(dtc.DataProvidersCombo, {"Orders", "Stock"});
            for (const Family which : BothFamilies)
                fill(dtc.family(which).LinkedDataProvidersCombo, {"Orders", "Stock"});
        };
        dtc.UserControl_Initialize();
    }
};

class ControlTest : public Test, protected TestControl {};

// For tests that run for each family.
inline std::string nameOfFamily(const TestParamInfo<Family>& info) {
    return std::string(traitsOf(info.param).prefix);
}

}  // namespace headerdtc
