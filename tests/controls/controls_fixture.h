#pragma once

#include "support/control_tools.h"
#include "support/event_recorder.h"
#include "support/fake_surroundings.h"
#include "support/prologue.h"

namespace headerdtc {

using enum Key::Kind;

// A surface; the test adds the controls, then records their events.
struct ControlsTest : Test {
    testing::ScriptedModalLoop loop;
    Desktop desktop{loop};
    Form surface{desktop, "UserControl", Form::Kind::Surface};
    EventRecorder events;

    // What an action raises.
    template <class Action>
    std::string eventsOf(Action&& action) {
        events.take();
        action();
        return events.take();
    }
    // Whether the action is refused without any event.
    template <class Action>
    bool isRefused(Action&& action) {
        events.take();
        try {
            action();
        } catch (const ActionRefused&) {
            return events.take().empty();
        }
        return false;
    }
};

}  // namespace headerdtc
