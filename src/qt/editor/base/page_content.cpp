#include "qt/editor/base/page_content.h"

#include "host/page/new_control.h"
#include "host/page/page_session.h"

#include <array>

namespace headerdtc::qt {
namespace {

constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";

bool endsLine(char c) {
    return c == '\n' || c == '\r';
}

}  // namespace

PageContent::PageContent(const std::filesystem::path& file, std::string bytes,
                         const CodePage& siteCodePage)
    : codePage_(siteCodePage) {
    try {
        markup_.emplace(file.string(), bytes, siteCodePage);
        codePage_ = markup_->codePage();
    } catch (const FileError& error) {
        problem_ = error;
        if (bytes.starts_with(Utf8Mark)) codePage_ = CodePage::utf8();
        unreadable_ = std::move(bytes);
    }
}

const std::vector<ControlSpan>& PageContent::controls() const {
    static const std::vector<ControlSpan> none;
    return markup_ ? markup_->controls() : none;
}

const PageMarkup& PageContent::markup() const {
    if (!markup_) throw FileError(*problem_);
    return *markup_;
}

std::optional<std::size_t> PageContent::indexOf(std::string_view controlId) const {
    for (std::size_t i = 0; i < controls().size(); ++i) {
        if (controls()[i].id == controlId) return i;
    }
    return std::nullopt;
}

std::string PageContent::runtimeTextOf(std::size_t control) const {
    return markup().runtimeTextOf(controls().at(control));
}

std::optional<ByteRange> PageContent::directive() const {
    return markup_ ? markup_->directive() : std::nullopt;
}

std::string PageContent::aroundControls() const {
    std::string around;
    std::size_t begin = 0;
    for (const ControlSpan& span : controls()) {
        around.append(bytes(), begin, span.whole.begin - begin);
        begin = span.whole.end;
    }
    return around.append(bytes(), begin);
}

std::string PageContent::lineEnd() const {
    struct Kind {
        const char* text;
        std::size_t count;
    };
    std::array<Kind, 3> kinds{{{"\r\n", 0}, {"\n", 0}, {"\r", 0}}};
    const std::string& all = bytes();
    for (std::size_t i = all.find_first_of("\r\n"); i != std::string::npos;
         i = all.find_first_of("\r\n", i + 1)) {
        if (all[i] == '\n') {
            ++kinds[1].count;
        } else if (i + 1 < all.size() && all[i + 1] == '\n') {
            ++kinds[0].count;
            ++i;
        } else {
            ++kinds[2].count;
        }
    }
    const Kind* most = &kinds[0];
    for (const Kind& kind : kinds) {
        if (kind.count > most->count) most = &kind;
    }
    return most->text;
}

std::string PageContent::withText(const ByteRange& range, std::string_view bytes) const {
    std::string changed = this->bytes();
    changed.replace(range.begin, range.size(), bytes);
    return changed;
}

std::string PageContent::withProperties(std::size_t control, const StoredProperties& properties,
                                        const PageContent& saved) const {
    const ControlSpan& span = controls().at(control);
    if (const auto before = saved.indexOf(span.id)) {
        const ControlSpan& savedSpan = saved.controls()[*before];
        if (savedSpan.properties == properties && saved.codePage() == codePage_)
            return withText(span.markup, saved.markup().textOf(savedSpan.markup));
    }
    auto contents = contentsOf(markup());
    contents[control].properties = properties;
    return withContents(contents);
}

std::string PageContent::withContents(const std::vector<ControlContent>& contents) const {
    return markup().with(contents);
}

std::string PageContent::withNewControl(std::optional<int> line) const {
    return markup().withNewControl(line, newControlContent(markup().freeId()));
}

std::string PageContent::withoutControl(std::size_t control) const {
    const std::string& all = bytes();
    ByteRange gone = controls().at(control).whole;
    const bool beginsLine = gone.begin == 0 || endsLine(all[gone.begin - 1]);
    if (beginsLine && gone.end < all.size() && endsLine(all[gone.end]))
        gone.end += all.compare(gone.end, 2, "\r\n") == 0 ? 2 : 1;
    return withText(gone, {});
}

}  // namespace headerdtc::qt
