#pragma once

#include "host/page/page_markup.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace headerdtc::qt {

// A page as the author has it at one moment: its bytes, and the controls in them. It never changes;
// every change makes a new one, so that undo, preview and recovery can share them.
class PageContent {
  public:
    // A page whose control markup cannot be read is text all the same: it has a problem and no
    // controls, and the author can mend it in the source.
    PageContent(const std::filesystem::path& file, std::string bytes, const CodePage& siteCodePage);

    const std::string& bytes() const { return markup_ ? markup_->bytes() : unreadable_; }
    const CodePage& codePage() const { return codePage_; }
    const std::vector<ControlSpan>& controls() const;
    // Why the markup cannot be read, with the line.
    const std::optional<FileError>& problem() const { return problem_; }
    std::optional<std::size_t> indexOf(std::string_view controlId) const;
    std::string runtimeTextOf(std::size_t control) const;
    std::optional<ByteRange> directive() const;
    // The page without its controls.
    std::string aroundControls() const;
    // The page's most frequent line end, CR LF when it has none.
    std::string lineEnd() const;

    // ---- the bytes of a changed page; throw FileError as PageMarkup does ----------------------
    std::string withText(const ByteRange& range, std::string_view bytes) const;
    // A control's other properties. Those that `saved` has for this control are written as they
    // are written there, so that taking a change back leaves no trace in the page.
    std::string withProperties(std::size_t control, const StoredProperties& properties,
                               const PageContent& saved) const;
    // One content for each control.
    std::string withContents(const std::vector<ControlContent>& contents) const;
    // A new control before a line (from 1), or where PageMarkup puts one that has none.
    std::string withNewControl(std::optional<int> line) const;
    // A control taken out, with the line end behind it where nothing else stands on its lines.
    std::string withoutControl(std::size_t control) const;

  private:
    const PageMarkup& markup() const;

    CodePage codePage_;
    std::optional<PageMarkup> markup_;
    std::string unreadable_;
    std::optional<FileError> problem_;
};

using PageContentPtr = std::shared_ptr<const PageContent>;

}  // namespace headerdtc::qt
