#include "platform/runtime_error.h"
#include "platform/surroundings.h"
#include "platform/text.h"
#include "scripts/scripts.h"

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

void provideInstallDirectory(HeaderDTC& dtc) {
    dtc.procedures.GetInstallDir = [&dtc] {
        std::string directory = installDirectoryOf(dtc.surroundings.registry);
        if (directory.empty())
            dtc.surroundings.messages.show("Can not find REGKEY '" + std::string(InstallDirValue) +
                                           "'");
        return directory;
    };
}

}  // namespace headerdtc
