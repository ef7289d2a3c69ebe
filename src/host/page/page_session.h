#pragma once

#include "core/stored_comparison.h"
#include "host/page/page_markup.h"
#include "host/site/site.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace headerdtc {

class FileDialog;
class HeaderDTC;
class MessageBox;
class ModalLoop;
class PropertyChangeSink;

// What the host of one control supplies besides its site: where messages go, how a person answers.
// The objects outlive the control.
struct HostFaces {
    MessageBox& messages;
    FileDialog& fileDialog;
    PropertyChangeSink& changes;
    ModalLoop& modalLoop;
    // In the place of the site's own, where they are given.
    Database* database = nullptr;
    TextFiles* textFiles = nullptr;
};

// What a save would store for one control, and the failures that making it reported.
struct MadeContent {
    ControlContent content;
    std::vector<std::string> errors;
};

// One of a page's controls come to life: set up, and its stored properties read.
class OpenControl {
  public:
    // `page` says how the page is named in the site; it need not exist. Failures while loading are
    // reported in message boxes and kept.
    OpenControl(std::shared_ptr<Site> site, const std::filesystem::path& page,
                const ControlSpan& span, const HostFaces& faces);
    ~OpenControl();
    OpenControl(const OpenControl&) = delete;
    OpenControl& operator=(const OpenControl&) = delete;

    HeaderDTC& dtc();
    const std::string& id() const;

    // As a host asks: for the properties first, then for the runtime text.
    MadeContent content();
    StoredProperties properties();
    std::string runtimeText();

    // Whether loading reported a failure.
    bool loadingFailed() const;
    // Why the page should be left as it is, found while loading: a reported failure, or stored
    // properties that would come back different. Nothing when all is well.
    const std::optional<std::string>& loadingDoubt() const;
    // The same after making a content, without what was dealt with since.
    std::optional<std::string> doubtAbout(const MadeContent& made) const;

  private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

// Leaves a control's properties in the words of its page where they say the same.
void keepWordsOf(const ControlSpan& control, ControlContent& content);

// The contents of a page as they stand, to be replaced one by one before PageMarkup::with.
std::vector<ControlContent> contentsOf(const PageMarkup& page);

}  // namespace headerdtc
