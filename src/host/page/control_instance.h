#pragma once

#include "core/header_dtc.h"

#include <memory>

namespace headerdtc {

// One HeaderDTC with all its behaviours: the editor, links, scripts, translations and the runtime
// text. UserControl_Initialize has run; properties are not read yet.
class ControlInstance {
  public:
    // The surroundings, the loop and the site outlive the instance.
    ControlInstance(const Surroundings& surroundings, ModalLoop& modalLoop,
                    DesignTimeControlSite& site);
    ~ControlInstance();

    HeaderDTC dtc;

  private:
    struct Behaviours;
    std::unique_ptr<Behaviours> behaviours_;
};

}  // namespace headerdtc
