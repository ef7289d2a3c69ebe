#pragma once

#include "host/files/code_page.h"
#include "host/files/file_error.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace headerdtc {

// The CLASSID of our controls, upper case, without braces.
inline constexpr std::string_view HeaderDtcClassId = "2F9DAB28-6BB4-469F-A568-9CA7A4217B69";

// Stored properties by name, in the order stored; UTF-8.
using StoredProperties = std::vector<std::pair<std::string, std::string>>;

// A piece of a page, in bytes.
struct ByteRange {
    std::size_t begin = 0, end = 0;
    std::size_t size() const { return end - begin; }
};

// One of our controls in a page.
struct ControlSpan {
    std::string id;
    StoredProperties properties;
    ByteRange whole;        // from the start comment's '<' to the end comment's '>'
    ByteRange markup;       // the start comment with the OBJECT, and the line end after it
    ByteRange runtimeText;  // between the two comments
    int line = 0;           // of the start comment, from 1
    // The PARAM tags of the properties, one for each.
    std::vector<ByteRange> params;
    // What the OBJECT has beside its ID and CLASSID, as it stands, each behind a blank.
    std::string otherAttributes;
};

// What is written for one control.
struct ControlContent {
    std::string id;
    StoredProperties properties;
    std::string runtimeText;  // UTF-8; empty, or ending in CR LF
};

// A page as it was read: its bytes, and where our controls are in them.
class PageMarkup {
  public:
    // Takes the bytes apart. `file` names the page in errors. A UTF-8 byte-order mark makes this
    // page UTF-8, otherwise it has the site's code page. A span reaches from its start to the first
    // end behind it; what is inside another's is its own affair. Throws FileError with the line for
    // a start without its end (any control's, since ours could be what follows), another control
    // inside one of ours or one of ours inside another, an OBJECT of ours that is not closed, and
    // two properties of one name.
    PageMarkup(std::string file, std::string bytes, const CodePage& siteCodePage);

    const std::string& file() const { return file_; }
    const std::string& bytes() const& { return bytes_; }
    std::string bytes() && { return std::move(bytes_); }
    const CodePage& codePage() const { return codePage_; }
    const std::vector<ControlSpan>& controls() const { return controls_; }
    std::string_view textOf(const ByteRange& range) const;
    // The runtime text of a control as it stands in the page, decoded.
    std::string runtimeTextOf(const ControlSpan& control) const;

    // The page's bytes with the controls' contents put in, one for each control in their order.
    // Throws std::invalid_argument for another number of contents.
    // The markup is kept byte for byte where no property is another (same names in the same order
    // with the same values), the runtime text where it is the same. In markup written anew the tags
    // of properties that no control of ours reads, and the attributes of the OBJECT, stay as they
    // stand: they are somebody else's. Throws FileError when a text holds what would end its span,
    // or start another.
    std::string with(const std::vector<ControlContent>& contents) const;
    // The same, for a page that is going to be written: also throws FileError where the controls
    // would not be read again as they are written, which markup damaged by others can bring about.
    std::string readableWith(const std::vector<ControlContent>& contents) const;
    // Whether the page holds these contents already, so that with() would give its own bytes.
    bool holds(const std::vector<ControlContent>& contents) const;
    // The page's directive, <%@ ... %>. A script engine takes it only before all other server
    // script, which a control's text is. Nothing where the page has none.
    std::optional<ByteRange> directive() const;
    // The page's bytes with one more control, before a line (from 1; one behind the last line is
    // the end), or, for no line, behind the directive, else at the page's start. Throws FileError
    // for a line that is not there or lies inside a control's span of any kind.
    std::string withNewControl(std::optional<int> line, const ControlContent& content) const;
    // Whether a text, put between the two comments of a control, would not be read as its text
    // alone: it has an end marker, or the start of another control.
    static bool breaksSpan(std::string_view text);
    // "HeaderDTC1", or the first number that no control of the page has.
    std::string freeId() const;

  private:
    static bool hasMarkup(const ControlSpan& control, const ControlContent& content);
    bool hasRuntimeText(const ControlSpan& control, const ControlContent& content) const;
    std::size_t placeOfLine(int line) const;
    std::size_t placeBehindDirective() const;
    std::vector<ByteRange> allSpans() const;

    std::string file_;
    std::string bytes_;
    CodePage codePage_;
    std::vector<ControlSpan> controls_;
    std::vector<ByteRange> foreignSpans_;  // of other controls
    std::vector<std::string> foreignIds_;
};

// A whole span as it is written: start comment, runtime text, end comment, with no line end after
// it. Throws FileError as PageMarkup::with does.
std::string writeControl(const std::string& file, const ControlContent& content,
                         const CodePage& codePage);

}  // namespace headerdtc
