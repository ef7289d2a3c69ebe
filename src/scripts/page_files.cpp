#include "core/handler.h"
#include "platform/runtime_error.h"
#include "platform/surroundings.h"
#include "platform/text.h"
#include "platform/utf8.h"
#include "scripts/scripts.h"

#include <optional>
#include <string>
#include <string_view>

namespace headerdtc {
namespace {

// One of the browse buttons.
struct Browsing {
    const char* handler;
    Button HeaderDTC::*button;
    TextBox HeaderDTC::*target;
    const char* property;  // that the target holds; empty for none
    const char* folder;    // where browsing begins, after the site's root
    const char* filter;
    bool refusalNamesRoot;
};

constexpr const char* ExtraIncludesProperty = "ExtraIncludes";
constexpr const char* StylesheetProperty = "XSLFilename";

// The title of the dialog is the designed one for both.
constexpr Browsing BrowsingTable[] = {
    {"BrowseForIncludeASPCommand_Click", &HeaderDTC::BrowseForIncludeASPCommand,
     &HeaderDTC::IncludeASPText, "", "", "ASP files (*.asp)|*.asp", false},
    {"BrowseForXSLFileCommand_Click", &HeaderDTC::BrowseForXSLFileCommand,
     &HeaderDTC::XSLFilenameText, StylesheetProperty, "/xsl", "XSL files (*.xsl)|*.xsl", true},
};

// A file's path from the site's root, with forward slashes; nothing for a file outside. The root
// is in capitals, so the case of the file's own path does not matter. The path from an empty root
// is the whole path.
std::optional<std::string> siteRelativePath(std::string_view file, std::string_view root) {
    const std::size_t length = utf8::offset(file, utf8::length(root));
    if (upperCase(file.substr(0, length)) != root) return std::nullopt;
    return replaceAll(file.substr(length), "\\", "/");
}

std::string refusal(const Browsing& browsing, const std::string& root) {
    std::string text = "Can not include a file outside the Velmora site";
    if (browsing.refusalNamesRoot) text += " '" + root + "'";
    return text;
}

// The files of the site that a page names, by their paths from the site's root: the extra include
// files and the stylesheet. Both are typed or browsed for; the includes form a list.
class PageFiles {
  public:
    explicit PageFiles(HeaderDTC& dtc);

  private:
    void browse(const Browsing& browsing);
    void IncludeASPAddCommand_Click();
    void IncludeASPDeleteCommand_Click();
    void IncludeASPList_Click();

    HeaderDTC& dtc_;
    Subscriptions subscriptions_;
};

PageFiles::PageFiles(HeaderDTC& dtc) : dtc_(dtc) {
    for (const Browsing& browsing : BrowsingTable) {
        subscriptions_ +=
            (dtc_.*browsing.button).Click.subscribe([this, &browsing] { browse(browsing); });
    }
    subscriptions_ +=
        dtc_.IncludeASPAddCommand.Click.subscribe([this] { IncludeASPAddCommand_Click(); });
    subscriptions_ +=
        dtc_.IncludeASPDeleteCommand.Click.subscribe([this] { IncludeASPDeleteCommand_Click(); });
    subscriptions_ += dtc_.IncludeASPList.Click.subscribe([this] { IncludeASPList_Click(); });
    subscriptions_ += dtc_.XSLFilenameText.Change.subscribe([this] {
        if (isInAuthorsHands(dtc_.XSLFilenameText)) dtc_.PropertyChanged(StylesheetProperty);
    });
}

// The dialog keeps its file name: cancelling it after a file was chosen once acts on that file
// again.
void PageFiles::browse(const Browsing& browsing) {
    runHandler(dtc_, browsing.handler, [&](ChangedProperties& changed) {
        const std::string root = dtc_.procedures.GetInstallDir();
        dtc_.BrowseDialog.InitDir = root + browsing.folder;
        dtc_.BrowseDialog.Filter = browsing.filter;
        dtc_.BrowseDialog.ShowOpen();
        const std::string& file = dtc_.BrowseDialog.FileName;
        if (file.empty()) return;
        const auto path = siteRelativePath(file, root);
        if (!path) return dtc_.surroundings.messages.show(refusal(browsing, root));
        TextBox& target = dtc_.*browsing.target;
        if (*browsing.property != '\0' && target.Text() != *path) changed.add(browsing.property);
        target.Text(*path);
    });
}

void PageFiles::IncludeASPAddCommand_Click() {
    const std::string path = dtc_.IncludeASPText.Text();
    if (trimBlanks(path).empty()) return;
    if (dtc_.IncludeASPList.find(path) >= 0) {
        dtc_.surroundings.messages.show("ASP already included");
    } else {
        dtc_.IncludeASPList.AddItem(path);
        dtc_.PropertyChanged(ExtraIncludesProperty);
    }
    dtc_.IncludeASPText.Text("");
}

// After a removal the item that followed is selected; after that of the last one, the first.
void PageFiles::IncludeASPDeleteCommand_Click() {
    ListBox& includes = dtc_.IncludeASPList;
    const int index = includes.ListIndex();
    if (index >= 0 && includes.ListCount() > 0) {
        includes.RemoveItem(index);
        dtc_.PropertyChanged(ExtraIncludesProperty);
    }
    if (index < includes.ListCount()) {
        includes.ListIndex(index);
    } else if (includes.ListCount() >= 1) {
        includes.ListIndex(0);
    }
    dtc_.IncludeASPText.Text("");
}

void PageFiles::IncludeASPList_Click() {
    dtc_.IncludeASPText.Text(dtc_.IncludeASPList.Text());
}

}  // namespace

Behaviour namePageFiles(HeaderDTC& dtc) {
    return std::make_shared<PageFiles>(dtc);
}

// ---- the install directory ----------------------------------------------------------------------

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
