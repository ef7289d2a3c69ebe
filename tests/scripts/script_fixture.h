#pragma once

#include "core/control_fixture.h"
#include "scripts/scripts.h"

namespace headerdtc {

// One control with the behaviours of the scripts room, on a site below C:\Sites\Main.
class ScriptsTest : public ControlTest {
  protected:
    ScriptsTest() { outside.registry.values[std::string(InstallDirValue)] = R"(C:\Sites\Main)"; }

    Scripts scripts{dtc};
};

}  // namespace headerdtc
