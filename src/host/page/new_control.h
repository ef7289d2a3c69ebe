#pragma once

#include "host/page/page_document.h"

#include <filesystem>
#include <optional>
#include <string>

namespace headerdtc {

// The bytes of a page with one new control in an otherwise empty document; `file` names it in
// errors.
std::string newPage(const std::filesystem::path& file, const CodePage& codePage);

// Makes a page with one new control in an otherwise empty document. Throws FileError when the file
// is there already.
void makeNewPage(const std::filesystem::path& file, const CodePage& codePage);

// Adds a new control to a page, before a line (from 1), or where PageMarkup::withNewControl puts
// one that has none. Throws FileError.
void addNewControl(const PageDocument& page, std::optional<int> line);

// What a control stores that was just placed on a page. It has no runtime text yet.
ControlContent newControlContent(const std::string& id);

}  // namespace headerdtc
