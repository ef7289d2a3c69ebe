#pragma once

#include "host/files/whole_file.h"
#include "host/page/page_session.h"

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>

namespace headerdtc {

// A page is not saved; what() is the reason.
class SaveRefused : public std::runtime_error {
  public:
    explicit SaveRefused(SaveDoubt doubt)
        : std::runtime_error(doubt.reason), doubt_(std::move(doubt)) {}
    const SaveDoubt& doubt() const { return doubt_; }

  private:
    SaveDoubt doubt_;
};

// A page's file with its controls, as it was last read or saved.
class PageDocument {
  public:
    using Guard = LossGuard;

    // Throws FileError.
    PageDocument(std::filesystem::path file, const CodePage& siteCodePage);

    const std::filesystem::path& file() const { return file_; }
    const PageMarkup& markup() const { return *markup_; }
    const FileStamp& stamp() const { return stamp_; }
    // Index of the control with that ID; the only or first one for an empty ID. Throws FileError
    // when there is none.
    std::size_t controlIndex(const std::string& id) const;

    // The page's bytes with a control's content in its place. Throws SaveRefused, and FileError
    // for a text that the page cannot hold.
    std::string bytesWith(std::size_t index, OpenControl& control, Guard guard) const;

    // Stores a control's content in the page. Tells whether the file was written, which happens
    // only when its bytes are others. Throws SaveRefused, and FileError when another program has
    // changed the file since.
    bool save(std::size_t index, OpenControl& control, Guard guard);

  private:
    void take(WholeFile file);

    std::filesystem::path file_;
    CodePage codePage_;
    FileStamp stamp_;
    std::optional<PageMarkup> markup_;
};

}  // namespace headerdtc
