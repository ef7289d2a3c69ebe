#include "host/page/page_session.h"

#include "host/control_instance.h"
#include "host/page/text_property_bag.h"
#include "platform/message_box.h"
#include "platform/runtime_error.h"

#include <utility>

namespace headerdtc {
namespace {

namespace fs = std::filesystem;

// Passes the boxes on and remembers which of them reported failures.
class FailureRecorder : public MessageBox {
  public:
    explicit FailureRecorder(MessageBox& next) : next_(next) {}
    void show(const std::string& text) override { next_.show(text); }
    void showError(const std::string& text) override {
        failures_.push_back(text);
        next_.showError(text);
    }
    std::vector<std::string> take() { return std::exchange(failures_, {}); }

  private:
    MessageBox& next_;
    std::vector<std::string> failures_;
};

bool isBelow(const std::string& page, const std::string& root) {
    return page.compare(0, root.size(), root) == 0;
}

// Where a page stands in its project, as the host of design-time controls tells it.
class PageSite : public DesignTimeControlSite {
  public:
    PageSite(const SiteConfiguration& site, const fs::path& page)
        : root_(withSlash(site.projectRoot)),
          page_(fs::absolute(page).lexically_normal().generic_string()) {
        if (isBelow(page_, root_)) return;
        // Another spelling of the same place: through links.
        std::error_code failure;
        const fs::path realRoot = fs::weakly_canonical(site.projectRoot, failure);
        const fs::path realPage = fs::weakly_canonical(page, failure);
        if (failure) return;
        if (isBelow(realPage.generic_string(), withSlash(realRoot))) {
            root_ = withSlash(realRoot);
            page_ = realPage.generic_string();
        }
    }

    std::string targetEnvironment(TargetEnvironmentEntry entry) override {
        if (!isBelow(page_, root_)) {
            throw RuntimeError(ErrorNumber::InvalidProcedureCall,
                               "the page is not below the project's root folder " + root_);
        }
        return entry == TargetEnvironmentEntry::ProjectRoot ? root_ : page_;
    }

  private:
    static std::string withSlash(const fs::path& folder) {
        std::string text = folder.lexically_normal().generic_string();
        if (!text.ends_with('/')) text += '/';
        return text;
    }

    std::string root_;
    std::string page_;
};

std::string quoted(const std::string& text) {
    constexpr std::size_t LongestShown = 60;
    if (text.size() <= LongestShown) return '"' + text + '"';
    std::size_t cut = LongestShown;
    while (cut > 0 && (static_cast<unsigned char>(text[cut]) & 0xC0U) == 0x80U)
        --cut;
    return '"' + text.substr(0, cut) + "...\"";
}

std::string describe(const std::vector<LostProperty>& losses) {
    constexpr std::size_t MostShown = 3;
    std::string text = losses.size() == 1 ? "a stored property would come back different: "
                                          : std::to_string(losses.size()) +
                                                " stored properties would come back different: ";
    for (std::size_t i = 0; i < losses.size() && i < MostShown; ++i) {
        const LostProperty& lost = losses[i];
        if (i > 0) text += ", ";
        text += lost.name + " is " + quoted(lost.stored) + " and would be ";
        text += lost.rewritten ? quoted(*lost.rewritten) : "gone";
    }
    if (losses.size() > MostShown) text += ", ...";
    return text;
}

std::optional<std::string> failureDoubt(const char* what, const std::vector<std::string>& errors) {
    if (errors.empty()) return std::nullopt;
    return std::string(what) + " reported an error: " + errors.front();
}

}  // namespace

struct OpenControl::Parts {
    Parts(std::shared_ptr<Site> site, const fs::path& page, const HostFaces& faces)
        : site(std::move(site)),
          failures(faces.messages),
          pageSite(*this->site->configuration, page),
          control(
              {failures, faces.fileDialog, this->site->registry, this->site->dataSources,
               faces.database ? *faces.database : this->site->database,
               faces.textFiles ? *faces.textFiles : this->site->textFiles, clock, faces.changes},
              faces.modalLoop, pageSite) {}

    std::shared_ptr<Site> site;
    FailureRecorder failures;
    SystemClock clock;
    PageSite pageSite;
    ControlInstance control;
    std::string id;
    std::optional<std::string> doubt;
    bool loadingFailed = false;
    std::vector<LostProperty> losses = {};  // found while loading
    // What was written right after loading, for as long as nobody could have changed the control.
    std::optional<StoredProperties> asLoaded;
};

OpenControl::OpenControl(std::shared_ptr<Site> site, const fs::path& page, const ControlSpan& span,
                         const HostFaces& faces)
    : parts_(std::make_unique<Parts>(std::move(site), page, faces)) {
    parts_->id = span.id;
    HeaderDTC& dtc = parts_->control.dtc;
    StoredPropertyBag stored(span.properties);
    dtc.UserControl_ReadProperties(stored);
    CollectingPropertyBag written(span.properties.size());
    dtc.UserControl_WriteProperties(written);
    parts_->doubt = failureDoubt("loading", parts_->failures.take());
    parts_->loadingFailed = parts_->doubt.has_value();
    if (!parts_->doubt) {
        parts_->losses = findLosses(span.properties, written.written());
        if (!parts_->losses.empty()) parts_->doubt = describe(parts_->losses);
    }
    parts_->asLoaded = std::move(written).asStored();
}

OpenControl::~OpenControl() = default;

HeaderDTC& OpenControl::dtc() {
    parts_->asLoaded.reset();
    return parts_->control.dtc;
}

const std::string& OpenControl::id() const {
    return parts_->id;
}

MadeContent OpenControl::content() {
    parts_->failures.take();
    MadeContent made;
    made.content.id = parts_->id;
    made.content.properties = properties();
    made.content.runtimeText = runtimeText();
    made.errors = parts_->failures.take();
    return made;
}

StoredProperties OpenControl::properties() {
    if (parts_->asLoaded) return *std::exchange(parts_->asLoaded, std::nullopt);
    CollectingPropertyBag written;
    parts_->control.dtc.UserControl_WriteProperties(written);
    return std::move(written).asStored();
}

std::string OpenControl::runtimeText() {
    parts_->asLoaded.reset();  // the expansion's look-ups may add to the dictionaries
    return parts_->control.dtc.IProvideRuntimeText_GetRuntimeText();
}

bool OpenControl::loadingFailed() const {
    return parts_->loadingFailed;
}

const std::optional<std::string>& OpenControl::loadingDoubt() const {
    return parts_->doubt;
}

std::optional<std::string> OpenControl::doubtAbout(const MadeContent& made) const {
    if (parts_->loadingFailed) return parts_->doubt;
    const auto losses = remainingLosses(parts_->losses, made.content.properties);
    if (!losses.empty()) return describe(losses);
    return failureDoubt("the generation", made.errors);
}

void keepWordsOf(const ControlSpan& control, ControlContent& content) {
    if (sayTheSame(control.properties, content.properties)) content.properties = control.properties;
}

std::vector<ControlContent> contentsOf(const PageMarkup& page) {
    std::vector<ControlContent> contents;
    for (const ControlSpan& control : page.controls())
        contents.push_back({control.id, control.properties, page.runtimeTextOf(control)});
    return contents;
}

}  // namespace headerdtc
