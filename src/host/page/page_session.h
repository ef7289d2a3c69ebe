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
    DataSourceFactory* dataSources = nullptr;
};

// Why a page should be left as it is.
struct SaveDoubt {
    enum class Kind {
        // Something of the author's would come back different; a save may be forced, which keeps it
        // as it is stored.
        Loss,
        // Loading or generating reported a failure: what would be written is not what was meant.
        Failure,
    };
    Kind kind;
    std::string reason;  // in words for whoever keeps the page
    std::vector<StoredLoss> losses;
};

// What a save does about losses: refuse, or write the new text and keep what is stored.
enum class LossGuard { RefuseLosses, SaveAnyway };

// Whether a save is refused for a doubt. A failure always refuses.
inline bool isRefused(const SaveDoubt& doubt, LossGuard guard) {
    return doubt.kind == SaveDoubt::Kind::Failure || guard == LossGuard::RefuseLosses;
}

// What a save would store for one control, and why it should not.
struct MadeContent {
    ControlContent content;
    std::optional<SaveDoubt> doubt;
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

    // What a save stores. As long as nothing was changed these are the page's own properties;
    // otherwise what the control writes, without dictionary entries that mean nothing, with what
    // the control could not take put back as it was stored, and with properties of other makers
    // behind.
    StoredProperties propertiesToStore();
    // Asks as a host does: for the properties first, then for the runtime text. Changed properties
    // are opened in a second control first, so that nothing is saved that the next opening of the
    // page would refuse.
    MadeContent content();
    // What the control itself writes and gives, to the letter.
    StoredProperties properties();
    std::string runtimeText();

    // Why the page should be left as it is, found while loading. Nothing when all is well.
    const std::optional<SaveDoubt>& loadingDoubt() const;

  private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

// The contents of a page as they stand, to be replaced one by one before PageMarkup::with.
std::vector<ControlContent> contentsOf(const PageMarkup& page);

}  // namespace headerdtc
