#include "scripts/install_directory.h"

#include "platform/message_box.h"
#include "platform/registry.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

namespace headerdtc {
namespace {

constexpr const char* InstallDirValue = R"(HKLM\SOFTWARE\Zarvik\Zarvik Velmora\InstallDir)";

// Empty on any failure: the message that follows is all that an author needs.
std::string readInstallDir(Registry& registry) {
    try {
        return upperCase(registry.RegRead(InstallDirValue));
    } catch (const RuntimeError&) {
        return {};
    }
}

}  // namespace

InstallDirectory::InstallDirectory(HeaderDTC& dtc) : dtc_(dtc) {
    dtc_.procedures.GetInstallDir = [this] { return GetInstallDir(); };
}

std::string InstallDirectory::GetInstallDir() {
    std::string directory = readInstallDir(dtc_.surroundings.registry);
    if (directory.empty()) {
        dtc_.surroundings.messages.show("Can not find REGKEY '" + std::string(InstallDirValue) +
                                        "'");
    } else if (directory.back() != '\\') {
        directory += '\\';
    }
    return directory;
}

}  // namespace headerdtc
