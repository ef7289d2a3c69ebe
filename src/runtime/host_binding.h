#pragma once

#include <string>

namespace headerdtc {

class DesignTimeControlSite;
class HeaderDTC;

// What the host of design-time controls calls on a control, besides
// HeaderDTC::IProvideRuntimeText_GetRuntimeText.
class HostBinding {
  public:
    explicit HostBinding(HeaderDTC& control) : control_(control) {}

    // The host's site object, nullptr until the host sets it; it belongs to the host.
    void IDesignTimeControl_DesignTimeControlSite(DesignTimeControlSite* site);
    DesignTimeControlSite* IDesignTimeControl_DesignTimeControlSite() const;

    // The control neither publishes nor uses choices: these are taken and ignored.
    void IDesignTimeControl_OnChoiceChange() {}
    void IDesignTimeControl_OnChoiceConflict() {}
    void IDesignTimeControl_OnGetChoices() {}
    void IDesignTimeControl_OnHostingChange() {}
    void IDesignTimeControl_OnRebind() {}
    // One more notification of the host, without arguments.
    void IDesignTimeControl_OnNotification() {}

  private:
    HeaderDTC& control_;
};

// The way from the page up to the root of its web project: "../" for each folder level. Without a
// site it says so in a message box and gives an empty text; other failures are reported likewise.
std::string GetRelativePathRoot(HeaderDTC& control);

}  // namespace headerdtc
