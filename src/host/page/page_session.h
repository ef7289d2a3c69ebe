#pragma once

#include "core/stored_comparison.h"
#include "host/control_instance.h"
#include "host/files/whole_file.h"
#include "host/page/page_markup.h"
#include "host/site/site.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace headerdtc {

// What the host of one control supplies besides its site: where messages go, how a person answers.
struct HostFaces {
    MessageBox& messages;
    FileDialog& fileDialog;
    PropertyChangeSink& changes;
    ModalLoop& modalLoop;
};

// One of a page's controls come to life: set up, and its stored properties read.
class OpenControl {
  public:
    // `index` counts the page's controls from 0. Failures while loading are reported in message
    // boxes and kept as loadingErrors. Throws what the configuration throws.
    OpenControl(std::shared_ptr<Site> site, const std::filesystem::path& page,
                const ControlSpan& span, const HostFaces& faces);
    ~OpenControl();

    HeaderDTC& dtc();
    const std::string& id() const;
    // Reports of failures since the control was made, in order.
    const std::vector<std::string>& errors() const;

    // What a save would store: properties first, then the runtime text, as the host asks.
    ControlContent content();
    StoredProperties properties();
    std::string runtimeText();
    // The stored properties of the page that would not survive `content()`, an author's own
    // changes not counted: compared with what was written right after loading.
    const std::vector<LostProperty>& lossesOfLoading() const;

  private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

}  // namespace headerdtc
