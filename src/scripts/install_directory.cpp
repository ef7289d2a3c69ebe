#include "scripts/install_directory.h"

#include "platform/message_box.h"
#include "platform/registry.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

namespace headerdtc {

std::string installDirectoryOf(Registry& registry) {
    try {
        std::string directory = upperCase(registry.RegRead(std::string(InstallDirValue)));
        if (!directory.empty() && directory.back() != '\\') directory += '\\';
        return directory;
    } catch (const RuntimeError&) {
        return {};
    }
}

InstallDirectory::InstallDirectory(HeaderDTC& dtc) : dtc_(dtc) {
    dtc_.procedures.GetInstallDir = [this] { return GetInstallDir(); };
}

std::string InstallDirectory::GetInstallDir() {
    std::string directory = installDirectoryOf(dtc_.surroundings.registry);
    if (directory.empty())
        dtc_.surroundings.messages.show("Can not find REGKEY '" + std::string(InstallDirValue) +
                                        "'");
    return directory;
}

}  // namespace headerdtc
