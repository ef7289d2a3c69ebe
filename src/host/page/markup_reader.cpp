#include "host/page/character_references.h"
#include "host/page/page_markup.h"
#include "host/page/tag_reader.h"
#include "host/page/text_property_bag.h"
#include "platform/text.h"
#include "platform/utf8.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

namespace headerdtc {
namespace {

constexpr std::string_view CommentStart = "<!--";
constexpr std::string_view CommentEnd = "-->";

// The places in a page where a designer control, ours or another's, begins and ends: comments like
//     <!--METADATA TYPE="DesignerControl" startspan ...   and   <!--METADATA ... endspan-->
// All positions are bytes from the page's start.
struct SpanMarker {
    enum class Kind { Start, End };
    Kind kind;
    std::size_t begin;  // of the '<'
    // Start: of what follows the comment's own attributes. End: behind the comment.
    std::size_t end;
};

std::optional<SpanMarker> markerAt(std::string_view page, std::size_t begin) {
    TagReader reader(page, begin + CommentStart.size());
    reader.skipSpace();
    if (!reader.takeTag("METADATA")) return std::nullopt;
    std::optional<std::string_view> type;
    std::optional<SpanMarker::Kind> kind;
    while (const auto attribute = reader.next()) {
        if (!type && equalIgnoringCase(attribute->name, "TYPE")) {
            type = attribute->value;
        } else if (!kind && equalIgnoringCase(attribute->name, "startspan")) {
            kind = SpanMarker::Kind::Start;
        } else if (!kind && equalIgnoringCase(attribute->name, "endspan")) {
            kind = SpanMarker::Kind::End;
        }
    }
    if (!kind || !type || !equalIgnoringCase(*type, "DesignerControl")) return std::nullopt;
    // A comment ends at the first "-->", quotation marks or not. A header in which one was passed
    // over is no comment.
    const auto header = page.substr(begin, reader.at() - begin);
    if (header.find(CommentEnd) != std::string_view::npos) return std::nullopt;
    if (*kind == SpanMarker::Kind::End) {
        if (!reader.take(CommentEnd)) return std::nullopt;
    } else if (!reader.atEnd() && !reader.sees("<") && !reader.sees(CommentEnd)) {
        return std::nullopt;
    }
    return SpanMarker{*kind, begin, reader.at()};
}

// The first marker at or behind a place.
std::optional<SpanMarker> findSpanMarker(std::string_view page, std::size_t from) {
    // A page is full of '<'; its '!' are few.
    for (auto at = page.find('!', from + 1); at != std::string_view::npos;
         at = page.find('!', at + 1)) {
        if (!page.substr(at - 1).starts_with(CommentStart)) continue;
        if (auto marker = markerAt(page, at - 1)) return marker;
    }
    return std::nullopt;
}

enum class Owner { Ours, Another, Nobody };

// What follows a start marker: the tag of an OBJECT.
struct ObjectTag {
    Owner owner = Owner::Nobody;
    std::string_view id;
    std::string otherAttributes;
    std::size_t begin = 0;
    std::size_t end = 0;
    bool closed = false;
};

bool isOurClass(std::string_view classId) {
    TagReader reader(classId, 0);
    reader.skipSpace();
    reader.take("clsid:");
    reader.skipSpace();
    reader.take("{");
    if (!reader.take(HeaderDtcClassId)) return false;
    reader.take("}");
    reader.skipSpace();
    return reader.atEnd();
}

// Whether a broken tag has our CLASSID; the break may be within the CLASSID itself.
bool namesOurClass(std::string_view tag) {
    tag = tag.substr(0, tag.find(CommentStart));
    tag = tag.substr(0, tag.find(CommentEnd));
    for (std::size_t at = 0; at + HeaderDtcClassId.size() <= tag.size(); ++at) {
        if (tag[at] == HeaderDtcClassId.front() && TagReader(tag, at).sees(HeaderDtcClassId))
            return true;
    }
    return false;
}

ObjectTag readObjectTag(std::string_view page, const SpanMarker& start) {
    TagReader reader(page, start.end);
    ObjectTag tag;
    tag.begin = start.end;
    tag.end = start.end;
    if (!reader.takeTag("<OBJECT")) return tag;
    std::string_view classId;
    while (const auto attribute = reader.next()) {
        const bool isId = equalIgnoringCase(attribute->name, "ID");
        const bool isClassId = equalIgnoringCase(attribute->name, "CLASSID");
        if (isId && tag.id.empty()) tag.id = attribute->value;
        if (isClassId && classId.empty()) classId = attribute->value;
        if (isId || isClassId) continue;
        const auto begin = static_cast<std::size_t>(attribute->name.data() - page.data());
        (tag.otherAttributes += ' ').append(page.substr(begin, reader.at() - begin));
    }
    tag.closed = reader.take(">");
    tag.end = reader.at();
    // The comment around the tag ends at the first "-->"; a tag that passed over one lacks a
    // quotation mark.
    if (page.substr(tag.begin, tag.end - tag.begin).find(CommentEnd) != std::string_view::npos)
        tag.closed = false;
    if (isOurClass(classId) || (!tag.closed && namesOurClass(page.substr(start.end)))) {
        tag.owner = Owner::Ours;
    } else if (tag.closed) {
        tag.owner = Owner::Another;
    }
    return tag;
}

// Where the controls are.
struct ControlsOfPage {
    std::vector<ControlSpan> ours;
    std::vector<ByteRange> others;
    std::vector<std::string> otherIds;
};

class PageReader {
  public:
    PageReader(const std::string& file, std::string_view page, const CodePage& codePage)
        : file_(file), page_(page), codePage_(codePage) {}

    ControlsOfPage read() {
        refuseUtf16();
        std::size_t at = 0;
        while (const auto marker = findSpanMarker(page_, at)) {
            at = marker->kind == SpanMarker::Kind::Start ? readSpan(*marker) : marker->end;
        }
        return std::move(controls_);
    }

  private:
    // With a byte-order mark, or such that every second byte of most characters is zero.
    void refuseUtf16() {
        const auto head = page_.substr(0, 4096);
        std::size_t zeros[2] = {};
        for (auto at = head.find('\0'); at != std::string_view::npos; at = head.find('\0', at + 1))
            ++zeros[at % 2];
        const auto [fewer, more] = std::minmax(zeros[0], zeros[1]);
        const bool looksLikeIt = fewer == 0 && more > 1 && more * 4 >= head.size();
        if (!looksLikeIt && !head.starts_with(utf8::LittleEndianMark) &&
            !head.starts_with(utf8::BigEndianMark))
            return;
        fail(0,
             "the page is in UTF-16, which no server page can be; save it in the site's code page, "
             "or as UTF-8 with a byte-order mark");
    }

    // A quotation mark that is not closed makes a tag reach into what follows. Only the start of
    // another control counts: that one would be lost.
    void refuseSwallowed(const ByteRange& tag, const std::string& name) {
        const auto upTo = page_.substr(0, tag.end);
        for (auto marker = findSpanMarker(upTo, tag.begin); marker;
             marker = findSpanMarker(upTo, marker->end)) {
            if (marker->kind != SpanMarker::Kind::Start ||
                readObjectTag(page_, *marker).owner == Owner::Nobody)
                continue;
            fail(tag.begin, name +
                                " is damaged and reaches into the designer control that starts "
                                "on line " +
                                std::to_string(lineOf(marker->begin)) +
                                "; close its quotation marks, and end it in \">\"");
        }
    }

    // Gives the span's end.
    std::size_t readSpan(const SpanMarker& start) {
        const auto tag = readObjectTag(page_, start);
        refuseSwallowed({tag.begin, tag.end}, "the OBJECT tag");
        if (tag.owner != Owner::Ours) {
            const auto end = findEnd(start, tag.end, tag.owner);
            controls_.others.push_back({start.begin, end.end});
            controls_.otherIds.push_back(textOf(tag.id));
            return end.end;
        }
        ControlSpan control;
        control.id = textOf(tag.id);
        control.line = lineOf(start.begin);
        control.markup = {start.begin, readProperties(tag, control)};
        control.otherAttributes = tag.otherAttributes;
        const auto end = findEnd(start, control.markup.end, tag.owner);
        control.runtimeText = {control.markup.end, end.begin};
        control.whole = {start.begin, end.end};
        controls_.ours.push_back(std::move(control));
        return end.end;
    }

    // The first end marker closes a span. A control that starts before it means that the span has
    // lost its own end. Inside another maker's span only the start of one of our controls matters;
    // what else it holds is not ours to judge.
    SpanMarker findEnd(const SpanMarker& start, std::size_t from, Owner owner) {
        std::vector<SpanMarker> inside;
        auto marker = findSpanMarker(page_, from);
        for (; marker && marker->kind == SpanMarker::Kind::Start;
             marker = findSpanMarker(page_, marker->end))
            inside.push_back(*marker);
        if (!marker) {
            fail(start.begin,
                 "the designer control that starts here has no end; put <!--METADATA "
                 "TYPE=\"DesignerControl\" endspan--> behind its text");
        }
        const auto text = page_.substr(0, marker->begin);
        for (const auto& other : inside) {
            const auto ownerInside = readObjectTag(text, other).owner;
            if (ownerInside == Owner::Ours ||
                (ownerInside == Owner::Another && owner == Owner::Ours)) {
                fail(start.begin,
                     "the designer control that starts here has no end before the next one, which "
                     "starts on line " +
                         std::to_string(lineOf(other.begin)) +
                         "; put <!--METADATA TYPE=\"DesignerControl\" endspan--> between them");
            }
        }
        return *marker;
    }

    // Gives the markup's end: behind the comment and the line end that follows.
    std::size_t readProperties(const ObjectTag& tag, ControlSpan& control) {
        if (!tag.closed) fail(tag.begin, "the OBJECT tag is not closed; it has to end in \">\"");
        // What does not reach the next comment swallows no marker.
        const auto nextComment = page_.find(CommentStart, tag.end);
        TagReader reader(page_, tag.end);
        while (true) {
            reader.skipSpace();
            const auto place = reader.at();
            if (reader.takeTag("<PARAM")) {
                control.properties.push_back(readParam(reader, place));
                control.params.push_back({place, reader.at()});
                if (reader.at() > nextComment) refuseSwallowed(control.params.back(), "this PARAM");
            } else if (takeClosingTag(reader, "</OBJECT")) {
                break;
            } else if (!takeClosingTag(reader, "</PARAM")) {
                failInObject(tag, reader);
            }
        }
        refuseRepeated(control);
        reader.skipSpace();
        if (!reader.take(CommentEnd)) {
            fail(reader.at(),
                 "the comment that holds the OBJECT has to end in \"-->\" behind </OBJECT>");
        }
        if (!reader.take("\r\n")) reader.take("\n");
        return reader.at();
    }

    void refuseRepeated(const ControlSpan& control) {
        const PropertyIndex index(control.properties);
        const auto second = index.repeated();
        if (!second) return;
        const std::string& name = control.properties[*second].first;
        fail(control.params[*second].begin,
             "the property \"" + name + "\" is there twice, here and on line " +
                 std::to_string(lineOf(control.params[*index.find(name)].begin)) +
                 "; remove one of them");
    }

    static bool takeClosingTag(TagReader& reader, std::string_view name) {
        TagReader ahead = reader;
        if (!ahead.takeTag(name)) return false;
        ahead.skipSpace();
        if (!ahead.take(">")) return false;
        reader = ahead;
        return true;
    }

    StoredProperties::value_type readParam(TagReader& reader, std::size_t place) {
        std::optional<std::string_view> name;
        std::optional<std::string_view> value;
        while (const auto attribute = reader.next()) {
            if (!name && equalIgnoringCase(attribute->name, "NAME")) name = attribute->value;
            if (!value && equalIgnoringCase(attribute->name, "VALUE")) value = attribute->value;
        }
        if (!reader.take(">"))
            fail(place, "this PARAM is broken; it has to read <PARAM NAME=\"...\" VALUE=\"...\">");
        if (!name) fail(place, "this PARAM has no NAME");
        return {textOf(*name), textOf(value.value_or(std::string_view()))};
    }

    [[noreturn]] void failInObject(const ObjectTag& tag, const TagReader& reader) {
        if (reader.atEnd() || reader.sees(CommentEnd) || reader.sees(CommentStart))
            fail(tag.begin, "the OBJECT is not closed; </OBJECT> is missing");
        fail(reader.at(), "nothing but PARAM can stand in the OBJECT of a HeaderDTC");
    }

    std::string textOf(std::string_view bytes) const {
        // Nearly all texts are the same in every code page.
        const bool isPlain =
            utf8::asciiLength(bytes) == bytes.size() && bytes.find('&') == std::string_view::npos;
        return isPlain ? std::string(bytes) : resolveReferences(codePage_.decode(bytes));
    }

    int lineOf(std::size_t place) {
        if (place < countedTo_) {
            countedTo_ = 0;
            lines_ = 1;
        }
        const auto* const begin = page_.data();
        lines_ += static_cast<int>(std::count(begin + countedTo_, begin + place, '\n'));
        countedTo_ = place;
        return lines_;
    }

    [[noreturn]] void fail(std::size_t place, const std::string& problem) {
        throw FileError::at(file_, page_, place, problem);
    }

    const std::string& file_;
    const std::string_view page_;
    const CodePage& codePage_;
    ControlsOfPage controls_;
    std::size_t countedTo_ = 0;
    int lines_ = 1;
};

}  // namespace

bool PageMarkup::breaksSpan(std::string_view text) {
    std::size_t at = 0;
    while (const auto marker = findSpanMarker(text, at)) {
        if (marker->kind == SpanMarker::Kind::End) return true;
        if (readObjectTag(text, *marker).owner != Owner::Nobody) return true;
        at = marker->end;
    }
    return false;
}

PageMarkup::PageMarkup(std::string file, std::string bytes, const CodePage& siteCodePage)
    : file_(std::move(file)),
      bytes_(std::move(bytes)),
      codePage_(bytes_.starts_with(utf8::ByteOrderMark) ? CodePage::utf8() : siteCodePage) {
    auto controls = PageReader(file_, bytes_, codePage_).read();
    controls_ = std::move(controls.ours);
    foreignSpans_ = std::move(controls.others);
    foreignIds_ = std::move(controls.otherIds);
}

}  // namespace headerdtc
