#pragma once

#include "host/files/code_page.h"
#include "platform/surroundings.h"

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace headerdtc {

// The string values of a registry export, as the registry editor of Windows writes it: UTF-16 with
// a byte-order mark, or the older single-byte REGEDIT4 in the site's code page.
class RegistryExport {
  public:
    // Throws FileError with line and column for bytes that are no export, or one that is cut off.
    // Values that are no strings are passed over.
    static RegistryExport parse(const std::string& file, std::string_view bytes,
                                const CodePage& codePage);

    // The value at a full path, its last piece being the value's name ("" for the default value),
    // nullptr when there is none. "HKLM" and "HKEY_LOCAL_MACHINE" are one; case does not matter.
    const std::string* find(std::string_view path) const;

  private:
    std::map<std::string, std::string> values_;  // by folded path
};

// The registry of a site: the export file, read again when it changed. RegRead raises what
// Registry says, with the file's problem in the description. Thread-safe.
class SiteRegistry : public Registry {
  public:
    SiteRegistry(std::filesystem::path file, const CodePage& codePage);
    ~SiteRegistry() override;
    std::string RegRead(const std::string& path) override;
    // What the last reading failed for, in words for whoever mends the site; empty when it did not.
    std::string lastFailure() const;

  private:
    struct Cache;
    std::unique_ptr<Cache> cache_;
};

}  // namespace headerdtc
