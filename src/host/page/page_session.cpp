#include "host/page/page_session.h"

#include "core/stored_keys.h"
#include "host/page/control_instance.h"
#include "host/page/quiet_host.h"
#include "host/page/text_property_bag.h"
#include "platform/runtime_error.h"
#include "platform/surroundings.h"
#include "platform/utf8.h"

#include <algorithm>
#include <iterator>
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

// Passes readings on and remembers the file that could not be read, which no box names.
class ReadingRecorder : public TextFiles {
  public:
    ReadingRecorder(TextFiles& next, const WindowsPaths& paths) : next_(next), paths_(paths) {}
    std::string readText(const std::string& windowsPath) override {
        try {
            return next_.readText(windowsPath);
        } catch (const RuntimeError&) {
            constexpr const char* Problem = " cannot be read";
            problem_ = windowsPath + Problem;
            problem_ = paths_.toLocal(windowsPath).string() + Problem;
            throw;
        }
    }
    void writeText(const std::string& windowsPath, const std::string& text) override {
        next_.writeText(windowsPath, text);
    }
    std::string takeProblem() { return std::exchange(problem_, {}); }

  private:
    TextFiles& next_;
    const WindowsPaths& paths_;
    std::string problem_;
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
        // The page may lie below the root by way of symbolic links.
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
                               "the page is not below the project's root folder " + root_ +
                                   ", which \"root\" in [project] of headerdtc.toml names");
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
    while (cut > 0 && utf8::isContinuation(text[cut]))
        --cut;
    return '"' + text.substr(0, cut) + "...\"";
}

// "ZEKO " for what belongs to a family.
std::string familyOf(const StoredLoss& loss) {
    return loss.family ? std::string(traitsOf(*loss.family).prefix) + ' ' : std::string();
}

std::string describe(const StoredLoss& loss) {
    using What = StoredLoss::What;
    const std::string text = quoted(loss.text);
    if (loss.name == "DataProvider")
        return "the data provider " + text + " is not in the catalogue";
    if (loss.what == What::MarkedItem)
        return text + ", which is marked for translation, is no " + familyOf(loss) + "return field";
    if (loss.what == What::Script) return "the script " + text + " is not among those counted";
    if (loss.what == What::Kind) {
        const bool isLocal = loss.stored == std::to_string(USERSCRIPT);
        return std::string("the kind '") + (isLocal ? "Local script" : "Included script") +
               "' of the " + familyOf(loss) + "value " + text +
               " cannot be kept with so few criteria; one more, empty row keeps it";
    }
    const std::string caption = partOf(loss.name)->caption();
    if (loss.what == What::Row)
        return "fewer of the " + caption + " would be left than the page counts";
    const bool isValue = loss.what == What::Value;
    return (isValue ? "the " + caption + ' ' + text : text + " of the " + caption) + " would " +
           (loss.rewritten ? "become " + quoted(*loss.rewritten) : "be lost");
}

std::optional<SaveDoubt> lossDoubt(const std::vector<StoredLoss>& losses) {
    if (losses.empty()) return std::nullopt;
    constexpr std::size_t MostShown = 3;
    std::string reason;
    for (std::size_t i = 0; i < losses.size() && i < MostShown; ++i)
        reason += (i > 0 ? "; " : "") + describe(losses[i]);
    if (losses.size() > MostShown)
        reason += "; and " + std::to_string(losses.size() - MostShown) + " more";
    return SaveDoubt{SaveDoubt::Kind::Loss, std::move(reason), losses};
}

// Clicking a row leaves the button of the script dialog in it; that alone is no change.
bool isSameQuery(StoredProperties now, StoredProperties before) {
    for (StoredProperties* properties : {&now, &before})
        std::erase_if(*properties,
                      [](const auto& property) { return isScriptButton(property.first); });
    return now == before;
}

}  // namespace

struct OpenControl::Parts {
    Parts(std::shared_ptr<Site> itsSite, const fs::path& page, const ControlSpan& span,
          const HostFaces& faces)
        : site(std::move(itsSite)),
          page(page),
          failures(faces.messages),
          textFiles(faces.textFiles ? *faces.textFiles : site->textFiles,
                    site->configuration->drives),
          pageSite(*site->configuration, page),
          control(
              {failures, faces.fileDialog, site->registry,
               faces.dataSources ? *faces.dataSources : site->dataSources,
               faces.database ? *faces.database : site->database, textFiles, clock, faces.changes},
              faces.modalLoop, pageSite),
          span(span) {}

    // The failure's text, and the file that has to be mended.
    std::optional<SaveDoubt> failureDoubt(const char* what) {
        const auto errors = failures.take();
        const std::string unread = textFiles.takeProblem();
        if (errors.empty()) return std::nullopt;
        std::string reason = std::string(what) + " reported an error: " + errors.front();
        for (const std::string& cause : {site->registry.lastFailure(), unread}) {
            if (!cause.empty()) reason += "; " + cause;
        }
        return SaveDoubt{SaveDoubt::Kind::Failure, std::move(reason), {}};
    }

    StoredProperties propertiesThatCount() {
        CollectingPropertyBag written(span.properties.size());
        control.dtc.writePropertiesThatCount(written);
        return std::move(written).asStored();
    }

    std::shared_ptr<Site> site;
    fs::path page;
    FailureRecorder failures;
    ReadingRecorder textFiles;
    SystemClock clock;
    PageSite pageSite;
    ControlInstance control;
    ControlSpan span;           // as it was loaded
    StoredProperties asLoaded;  // what was written right after loading
    std::vector<StoredLoss> losses;
    std::optional<SaveDoubt> doubt;
    bool isUntouched = true;  // nobody could have changed the control since
};

OpenControl::OpenControl(std::shared_ptr<Site> site, const fs::path& page, const ControlSpan& span,
                         const HostFaces& faces)
    : parts_(std::make_unique<Parts>(std::move(site), page, span, faces)) {
    StoredPropertyBag stored(parts_->span.properties);
    parts_->control.dtc.UserControl_ReadProperties(stored);
    parts_->asLoaded = parts_->propertiesThatCount();
    parts_->losses = findLosses(span.properties, parts_->asLoaded);
    parts_->doubt = parts_->failureDoubt("loading");
    if (!parts_->doubt) parts_->doubt = lossDoubt(parts_->losses);
}

OpenControl::~OpenControl() = default;

HeaderDTC& OpenControl::dtc() {
    parts_->isUntouched = false;
    return parts_->control.dtc;
}

const std::string& OpenControl::id() const {
    return parts_->span.id;
}

StoredProperties OpenControl::propertiesToStore() {
    const StoredProperties& before = parts_->span.properties;
    if (parts_->isUntouched) return before;
    StoredProperties now = parts_->propertiesThatCount();
    if (isSameQuery(now, parts_->asLoaded)) return before;
    const auto remaining = remainingLosses(parts_->losses, now);
    StoredProperties kept = withLosses(std::move(now), remaining);
    std::copy_if(before.begin(), before.end(), std::back_inserter(kept),
                 [](const auto& property) { return !storedTypeOf(property.first); });
    return kept;
}

MadeContent OpenControl::content() {
    parts_->failures.take();
    MadeContent made;
    made.content = {parts_->span.id, propertiesToStore(), {}};
    made.content.runtimeText = runtimeText();
    made.doubt = parts_->failureDoubt("the generation");
    if (parts_->isUntouched && parts_->doubt) made.doubt = parts_->doubt;
    if (parts_->isUntouched || made.doubt) return made;
    // The control may hold more than is stored: a script that was only looked up adds an empty line
    // to the generated text. The page will be opened from what is stored, so that is what is
    // generated from.
    QuietHost quiet;
    ControlSpan stored = parts_->span;
    stored.properties = made.content.properties;
    return OpenControl(parts_->site, parts_->page, stored, quiet.faces()).content();
}

StoredProperties OpenControl::properties() {
    CollectingPropertyBag written;
    parts_->control.dtc.UserControl_WriteProperties(written);
    return std::move(written).asStored();
}

std::string OpenControl::runtimeText() {
    return parts_->control.dtc.IProvideRuntimeText_GetRuntimeText();
}

const std::optional<SaveDoubt>& OpenControl::loadingDoubt() const {
    return parts_->doubt;
}

std::vector<ControlContent> contentsOf(const PageMarkup& page) {
    std::vector<ControlContent> contents;
    for (const ControlSpan& control : page.controls())
        contents.push_back({control.id, control.properties, page.runtimeTextOf(control)});
    return contents;
}

}  // namespace headerdtc
