#include "host/page/page_markup.h"

#include "core/stored_keys.h"
#include "host/page/character_references.h"
#include "host/page/tag_reader.h"
#include "platform/text.h"
#include "platform/utf8.h"

#include <algorithm>
#include <map>
#include <optional>
#include <stdexcept>

namespace headerdtc {
namespace {

constexpr std::string_view LineEnd = "\r\n";
constexpr std::string_view EndComment = "<!--METADATA TYPE=\"DesignerControl\" endspan-->";

constexpr std::size_t LongestUsualParam = 100;  // bytes

std::string attribute(const std::string& text, const CodePage& codePage) {
    return '"' + codePage.encodeWithReferences(escapeReferences(text)) + '"';
}

// Somebody else's tags of a control, as they stand in its page.
class ForeignTags {
  public:
    ForeignTags(const ControlSpan& control, std::string_view page) {
        for (std::size_t i = 0; i < control.properties.size(); ++i) {
            const ByteRange& tag = control.params[i];
            if (!storedTypeOf(control.properties[i].first))
                tags_.emplace(control.properties[i], page.substr(tag.begin, tag.size()));
        }
    }
    // Nothing for a property that is the control's own, or another than it was.
    std::optional<std::string_view> find(const StoredProperties::value_type& property) const {
        const auto found = tags_.find(property);
        return found == tags_.end() ? std::nullopt : std::optional(found->second);
    }

  private:
    std::map<StoredProperties::value_type, std::string_view> tags_;
};

std::string writeMarkup(const ControlContent& content, const CodePage& codePage,
                        const std::string& otherAttributes = {},
                        const ForeignTags* foreign = nullptr) {
    std::string markup = "<!--METADATA TYPE=\"DesignerControl\" startspan\r\n<OBJECT ID=";
    markup += attribute(content.id, codePage);
    markup.append(" CLASSID=\"clsid:").append(HeaderDtcClassId).append("\"");
    markup += otherAttributes;
    // Before it a hyphen without quotation marks would be the end of the comment.
    markup += otherAttributes.ends_with('-') ? " >\r\n" : ">\r\n";
    for (const auto& property : content.properties) {
        markup += '\t';
        if (const auto tag = foreign ? foreign->find(property) : std::nullopt) {
            markup += *tag;
        } else {
            markup += "<PARAM NAME=" + attribute(property.first, codePage);
            markup += " VALUE=" + attribute(property.second, codePage) + '>';
        }
        markup += "\r\n";
    }
    markup += "</OBJECT>\r\n-->\r\n";
    return markup;
}

// Throws FileError for a text that would not come back; `line` is 0 where the control is not in the
// page yet.
std::string writeRuntimeText(const std::string& file, int line, const ControlContent& content,
                             const CodePage& codePage) {
    std::string bytes = codePage.encodeWithReferences(content.runtimeText);
    if (!PageMarkup::breaksSpan(bytes)) return bytes;
    const std::string problem =
        "the runtime text of " + content.id +
        " holds the start or end comment of a designer control (<!--METADATA "
        "TYPE=\"DesignerControl\" ...), so the page could not be read again; take it out of the "
        "template or the scripts that it comes from";
    if (line > 0) throw FileError(file, line, 1, problem);
    throw FileError(file, problem);
}

}  // namespace

std::string_view PageMarkup::textOf(const ByteRange& range) const {
    return std::string_view(bytes_).substr(range.begin, range.size());
}

std::string PageMarkup::runtimeTextOf(const ControlSpan& control) const {
    return codePage_.decode(textOf(control.runtimeText));
}

bool PageMarkup::hasMarkup(const ControlSpan& control, const ControlContent& content) {
    return content.id == control.id && content.properties == control.properties;
}

bool PageMarkup::hasRuntimeText(const ControlSpan& control, const ControlContent& content) const {
    const auto bytes = textOf(control.runtimeText);
    // ASCII is the same in every code page, so it needs no decoding.
    if (utf8::asciiLength(bytes) == bytes.size()) return content.runtimeText == bytes;
    return content.runtimeText == runtimeTextOf(control);
}

bool PageMarkup::holds(const std::vector<ControlContent>& contents) const {
    return std::equal(controls_.begin(), controls_.end(), contents.begin(), contents.end(),
                      [this](const ControlSpan& control, const ControlContent& content) {
                          return hasMarkup(control, content) && hasRuntimeText(control, content);
                      });
}

std::string PageMarkup::with(const std::vector<ControlContent>& contents) const {
    if (contents.size() != controls_.size())
        throw std::invalid_argument("a page's controls and their contents differ in number");
    // A page that grew beyond what is reserved would be copied once more.
    std::size_t size = bytes_.size();
    for (const auto& content : contents)
        size += content.runtimeText.size() + content.properties.size() * LongestUsualParam;
    std::string result;
    result.reserve(size);
    std::size_t at = 0;
    for (std::size_t i = 0; i < controls_.size(); ++i) {
        const auto& control = controls_[i];
        const auto& content = contents[i];
        result += textOf({at, control.markup.begin});
        if (hasMarkup(control, content)) {
            result += textOf(control.markup);
        } else {
            const ForeignTags foreign(control, bytes_);
            result += writeMarkup(content, codePage_, control.otherAttributes, &foreign);
        }
        if (hasRuntimeText(control, content)) {
            result += textOf(control.runtimeText);
        } else {
            // Without a line end of its own the markup would take the new text's first one.
            if (!result.ends_with('\n')) result += LineEnd;
            result += writeRuntimeText(file_, control.line, content, codePage_);
        }
        at = control.runtimeText.end;
    }
    result += textOf({at, bytes_.size()});
    return result;
}

std::string PageMarkup::readableWith(const std::vector<ControlContent>& contents) const {
    std::string result = with(contents);
    if (result == bytes_) return result;
    const PageMarkup again(file_, result, codePage_);
    const bool isReadAlike =
        std::equal(again.controls().begin(), again.controls().end(), contents.begin(),
                   contents.end(), [](const ControlSpan& control, const ControlContent& content) {
                       return control.id == content.id && control.properties == content.properties;
                   });
    if (isReadAlike) return result;
    throw FileError(file_, controls_.front().line, 0,
                    "what is written would not be read again, because of damaged markup around "
                    "it, such as a quotation mark that is not closed; correct that first");
}

std::vector<ByteRange> PageMarkup::allSpans() const {
    std::vector<ByteRange> spans = foreignSpans_;
    for (const ControlSpan& control : controls_)
        spans.push_back(control.whole);
    std::sort(spans.begin(), spans.end(),
              [](const ByteRange& a, const ByteRange& b) { return a.begin < b.begin; });
    return spans;
}

std::optional<ByteRange> PageMarkup::directive() const {
    const auto spans = allSpans();
    auto span = spans.begin();
    for (auto at = bytes_.find("<%"); at != std::string::npos;) {
        while (span != spans.end() && span->end <= at)
            ++span;
        if (span != spans.end() && span->begin <= at) {
            at = bytes_.find("<%", span->end);
            continue;
        }
        const auto end = bytes_.find("%>", at + 2);
        if (end == std::string::npos) break;
        TagReader script(bytes_, at + 2);
        script.skipSpace();
        if (script.sees("@")) return ByteRange{at, end + 2};
        at = bytes_.find("<%", end + 2);
    }
    return std::nullopt;
}

std::string PageMarkup::withNewControl(std::optional<int> line,
                                       const ControlContent& content) const {
    const auto place = line ? placeOfLine(*line) : placeBehindDirective();
    for (const ByteRange& span : allSpans()) {
        if (span.begin < place && place < span.end) {
            throw FileError(
                file_, line.value_or(1), 1,
                "this line lies inside a designer control, where no other one can stand");
        }
    }
    std::string inserted = writeControl(file_, content, codePage_).append(LineEnd);
    const auto before = std::string_view(bytes_).substr(0, place);
    if (!before.empty() && before != utf8::ByteOrderMark && !before.ends_with('\n'))
        inserted.insert(0, LineEnd);
    return std::string(bytes_).insert(place, inserted);
}

std::size_t PageMarkup::placeBehindDirective() const {
    const auto found = directive();
    if (!found) return placeOfLine(1);
    TagReader reader(bytes_, found->end);
    // Server script runs in a comment too, but nobody would see there what the page shows.
    const auto before = std::string_view(bytes_).substr(0, found->begin);
    const auto comment = before.rfind("<!--");
    if (comment != std::string_view::npos &&
        before.find("-->", comment) == std::string_view::npos) {
        reader.skipSpace();
        reader.take("-->");
    }
    // The rest of the line goes with it where nothing else stands there.
    const auto rest = std::min(bytes_.find_first_not_of(" \t", reader.at()), bytes_.size());
    TagReader lineEnd(bytes_, rest);
    const bool isWholeLine = lineEnd.take("\r\n") || lineEnd.take("\n") || lineEnd.atEnd();
    return isWholeLine ? lineEnd.at() : reader.at();
}

std::size_t PageMarkup::placeOfLine(int line) const {
    std::size_t place = bytes_.size() - utf8::withoutMark(bytes_).size();
    int current = 1;
    while (current < line && place < bytes_.size()) {
        const auto lineEnd = bytes_.find('\n', place);
        place = lineEnd == std::string::npos ? bytes_.size() : lineEnd + 1;
        ++current;
    }
    if (line < 1 || current < line) {
        throw FileError(file_, "has no line " + std::to_string(line) +
                                   "; a new control can stand before the lines 1 to " +
                                   std::to_string(current));
    }
    return place;
}

std::string PageMarkup::freeId() const {
    const auto isTaken = [this](const std::string& id) {
        const auto isId = [&id](const std::string& taken) { return equalIgnoringCase(taken, id); };
        return std::any_of(foreignIds_.begin(), foreignIds_.end(), isId) ||
               std::any_of(controls_.begin(), controls_.end(),
                           [&](const ControlSpan& control) { return isId(control.id); });
    };
    int number = 1;
    while (isTaken("HeaderDTC" + std::to_string(number)))
        ++number;
    return "HeaderDTC" + std::to_string(number);
}

std::string writeControl(const std::string& file, const ControlContent& content,
                         const CodePage& codePage) {
    return writeMarkup(content, codePage)
        .append(writeRuntimeText(file, 0, content, codePage))
        .append(EndComment);
}

}  // namespace headerdtc
