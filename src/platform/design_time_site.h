#pragma once

#include <string>
#include <string_view>

namespace headerdtc {

// The entries of the host's "TargetEnvironment" context that the control reads.
enum class TargetEnvironmentEntry : int { ProjectRoot = 2, PagePath = 6 };

// The site object that the host of a design-time control hands to it.
class DesignTimeControlSite {
  public:
    virtual ~DesignTimeControlSite() = default;
    // One text entry of the "TargetEnvironment" context. Raises RuntimeError when it is missing.
    virtual std::string targetEnvironment(TargetEnvironmentEntry entry) = 0;
};

// Receives the property-changed notices of the control.
class PropertyChangeSink {
  public:
    virtual ~PropertyChangeSink() = default;
    virtual void propertyChanged(std::string_view property) = 0;
};

}  // namespace headerdtc
