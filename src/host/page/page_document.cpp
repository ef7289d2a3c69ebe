#include "host/page/page_document.h"

#include "host/files/file_replacer.h"

#include <utility>

namespace headerdtc {

PageDocument::PageDocument(std::filesystem::path file, const CodePage& siteCodePage)
    : file_(std::move(file)), codePage_(siteCodePage) {
    take(readWholeFile(file_));
}

void PageDocument::take(WholeFile file) {
    markup_.emplace(file_.string(), std::move(file.bytes), codePage_);
    stamp_ = file.stamp;
}

std::size_t PageDocument::controlIndex(const std::string& id) const {
    const auto& controls = markup_->controls();
    for (std::size_t i = 0; i < controls.size(); ++i) {
        if (id.empty() || controls[i].id == id) return i;
    }
    throw FileError(file_.string(), id.empty()
                                        ? "there is no HeaderDTC control in this page; 'headerdtc "
                                          "new --into' adds one"
                                        : "there is no control with the ID '" + id + "'");
}

std::string PageDocument::bytesWith(std::size_t index, OpenControl& control, Guard guard) const {
    MadeContent made = control.content();
    if (made.doubt && isRefused(*made.doubt, guard)) throw SaveRefused(*made.doubt);
    auto contents = contentsOf(*markup_);
    contents.at(index) = std::move(made.content);
    return markup_->readableWith(contents);
}

bool PageDocument::save(std::size_t index, OpenControl& control, Guard guard) {
    const std::string bytes = bytesWith(index, control, guard);
    if (bytes == markup_->bytes()) return false;
    replaceWholeFile(file_, bytes, stamp_);
    take(readWholeFile(file_));
    return true;
}

}  // namespace headerdtc
