#include "host/site/registry_export.h"

#include "host/files/file_cache.h"
#include "host/files/file_error.h"
#include "platform/ascii.h"
#include "platform/runtime_error.h"
#include "platform/text.h"
#include "platform/utf8.h"

#include <algorithm>
#include <mutex>
#include <optional>
#include <utility>

namespace headerdtc {
namespace {

constexpr std::string_view Version5 = "Windows Registry Editor Version 5.00";
constexpr std::string_view Version4 = "REGEDIT4";
constexpr unsigned TextType = 1;
constexpr unsigned ExpandableTextType = 2;

// What the scripting shell reports for a key or value that is not there.
constexpr int CannotOpenKey = -2147024894;

struct RootName {
    std::string_view shortName, name;
};

constexpr RootName RootNames[] = {
    {"HKLM", "HKEY_LOCAL_MACHINE"},  {"HKCU", "HKEY_CURRENT_USER"}, {"HKCR", "HKEY_CLASSES_ROOT"},
    {"HKCC", "HKEY_CURRENT_CONFIG"}, {"HKU", "HKEY_USERS"},
};

// ---- bytes to text ------------------------------------------------------------------------------

// UTF-16 as it lies in a file. `high` says which of two bytes counts more; half a unit at the end
// is passed over.
std::string decodeUtf16(std::string_view bytes, std::size_t high) {
    std::u16string units;
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2)
        units += static_cast<char16_t>(static_cast<unsigned char>(bytes[at + high]) << 8U |
                                       static_cast<unsigned char>(bytes[at + 1 - high]));
    return utf8::fromUtf16Replacing(units);
}

constexpr std::size_t LittleEndian = 1;
constexpr std::size_t BigEndian = 0;

struct DecodedExport {
    std::string text;
    bool isCutOff = false;  // inside its last character
};

DecodedExport decodeExport(std::string_view bytes, const CodePage& codePage) {
    const auto behindMark = bytes.substr(std::min<std::size_t>(2, bytes.size()));
    if (bytes.starts_with(utf8::LittleEndianMark))
        return {decodeUtf16(behindMark, LittleEndian), bytes.size() % 2 != 0};
    if (bytes.starts_with(utf8::BigEndianMark))
        return {decodeUtf16(behindMark, BigEndian), bytes.size() % 2 != 0};
    // Neither is written by the registry editor, but is what other programs make of an export.
    const auto text = utf8::withoutMark(bytes);
    const bool isUtf8 = text.size() < bytes.size() || text.starts_with(Version5);
    return {(isUtf8 ? CodePage::utf8() : codePage).decode(text)};
}

// ---- keys ---------------------------------------------------------------------------------------

std::string foldedKey(std::string_view key) {
    const auto root = key.substr(0, key.find('\\'));
    std::string full(root);
    for (const auto& [shortName, name] : RootNames) {
        if (equalIgnoringCase(root, shortName)) full = name;
    }
    return foldCase(full.append(key.substr(root.size())));
}

// A value's name may hold a backslash, so it does not separate it from the key.
std::string foldedPath(const std::string& foldedKeyName, std::string_view name) {
    return foldedKeyName + '\n' + foldCase(name);
}

// A place in a text that is being read, and errors that name it. Lines end in CR LF or LF.
class TextCursor {
  public:
    TextCursor(const std::string& file, std::string_view text) : file_(file), text_(text) {}

    bool atEnd() const { return at_ >= text_.size(); }
    bool atLineEnd() const { return atEnd() || peek() == '\r' || peek() == '\n'; }
    // The byte here, NUL at the end.
    char peek() const { return atEnd() ? '\0' : text_[at_]; }
    char next() { return text_[at_++]; }
    std::string_view rest() const { return text_.substr(at_); }
    // Passes over something that stands here; false when it does not.
    bool take(std::string_view word) {
        if (!rest().starts_with(word)) return false;
        at_ += word.size();
        return true;
    }
    void skipBlanks() {
        while (peek() == ' ' || peek() == '\t')
            ++at_;
    }
    // What is left of the line, its end passed over.
    std::string_view takeLine() {
        auto line = rest().substr(0, rest().find('\n'));
        at_ = std::min(at_ + line.size() + 1, text_.size());
        if (line.ends_with('\r')) line.remove_suffix(1);
        return line;
    }

    // An error here, or at another place of the text.
    [[noreturn]] void fail(const std::string& problem) const { failAt(at_, problem); }
    [[noreturn]] void failAt(std::size_t place, const std::string& problem) const {
        throw FileError::at(file_, text_, place, problem);
    }
    std::size_t place() const { return at_; }

  private:
    const std::string& file_;
    std::string_view text_;
    std::size_t at_ = 0;
};

// ---- text to values -----------------------------------------------------------------------------

class ExportReader {
  public:
    ExportReader(const std::string& file, std::string_view text, const CodePage& codePage)
        : at_(file, text), codePage_(codePage) {}

    std::map<std::string, std::string> read() {
        readHeader();
        while (!at_.atEnd()) {
            at_.skipBlanks();
            if (at_.atLineEnd() || at_.peek() == ';') {
                at_.takeLine();
            } else if (at_.peek() == '[') {
                readKey();
            } else {
                readValue();
            }
        }
        return std::move(values_);
    }

  private:
    void readHeader() {
        const auto place = at_.place();
        const auto line = trimBlanks(at_.takeLine());
        if (line == Version5) return;
        isVersion4_ = line == Version4;
        if (!isVersion4_) {
            at_.failAt(place, "this is no registry export: the first line has to be \"" +
                                  std::string(Version5) + "\" or \"" + std::string(Version4) +
                                  "\"; export the key with the registry editor of Windows");
        }
    }

    void readKey() {
        const auto place = at_.place();
        auto line = trimBlanks(at_.takeLine());
        const auto closing = line.rfind(']');
        if (closing == std::string_view::npos)
            at_.failAt(place, "this key is not closed by \"]\"; the export is cut off or damaged");
        line = line.substr(1, closing - 1);
        const bool isDeleted = line.starts_with('-');
        if (isDeleted) line.remove_prefix(1);
        sawKey_ = true;
        key_ = isDeleted ? std::nullopt : std::optional(foldedKey(line));
        if (isDeleted) removeKey(foldedKey(line));
    }

    // With all that is below it.
    void removeKey(const std::string& key) {
        std::erase_if(values_, [&](const auto& value) {
            return value.first.starts_with(key) &&
                   (value.first[key.size()] == '\\' || value.first[key.size()] == '\n');
        });
    }

    void readValue() {
        const auto place = at_.place();
        std::string name;
        if (at_.peek() == '"') {
            name = readString();
        } else if (!at_.take("@")) {
            at_.fail("here a key, a value or a comment has to begin; the export is damaged");
        }
        at_.skipBlanks();
        if (!at_.take("=")) at_.fail("\"=\" is missing behind the value's name");
        at_.skipBlanks();

        std::optional<std::string> value;
        if (at_.peek() == '"') {
            value = readString();
        } else if (at_.take("dword:")) {
            if (readHexDigits() == 0) at_.fail("the number is missing; the export is cut off");
        } else if (at_.take("hex")) {
            value = readBinary();
        } else if (!at_.take("-")) {
            at_.fail("this is no value; the export is cut off or damaged");
        }
        at_.skipBlanks();
        if (!at_.atLineEnd() && at_.peek() != ';') at_.fail("the line has to end behind the value");
        at_.takeLine();
        store(name, std::move(value), place);
    }

    void store(const std::string& name, std::optional<std::string> value, std::size_t place) {
        if (!sawKey_) at_.failAt(place, "this value belongs to no key");
        if (!key_) return;
        const auto path = foldedPath(*key_, name);
        if (value) {
            values_.insert_or_assign(path, std::move(*value));
        } else {
            values_.erase(path);
        }
    }

    // In quotes; it may go on over several lines.
    std::string readString() {
        const auto place = at_.place();
        at_.next();
        std::string text;
        while (!at_.atEnd()) {
            const char c = at_.next();
            if (c == '"') return text;
            if (c == '\\') {
                if (at_.peek() != '\\' && at_.peek() != '"')
                    at_.fail("a backslash in a string is written twice");
                text += at_.next();
            } else {
                text += c;
            }
        }
        at_.failAt(place, "this string is not closed; the export is cut off");
    }

    // "hex:" or "hex(TYPE):" and bytes, which a backslash continues on the next line. Gives the
    // text where the type is one of text.
    std::optional<std::string> readBinary() {
        bool isText = false;
        if (at_.take("(")) {
            unsigned type = 0;
            if (readHexDigits(&type) == 0 || !at_.take(")"))
                at_.fail("the type of the value is damaged");
            isText = type == TextType || type == ExpandableTextType;
        }
        if (!at_.take(":")) at_.fail("\":\" is missing behind the value's type");
        const std::string bytes = readBytes();
        if (!isText) return std::nullopt;
        auto text = isVersion4_ ? codePage_.decode(bytes) : decodeUtf16(bytes, LittleEndian);
        return text.substr(0, text.find('\0'));
    }

    std::string readBytes() {
        std::string bytes;
        at_.skipBlanks();
        if (at_.atLineEnd()) return bytes;
        do {
            skipContinuations();
            const auto place = at_.place();
            unsigned byte = 0;
            if (readHexDigits(&byte) != 2)
                at_.failAt(place, "expected a byte of two digits; the export is cut off");
            bytes += static_cast<char>(byte);
            at_.skipBlanks();
        } while (at_.take(","));
        return bytes;
    }

    void skipContinuations() {
        at_.skipBlanks();
        while (at_.take("\\")) {
            at_.skipBlanks();
            if (!at_.atLineEnd()) at_.fail("the line has to end behind \"\\\"");
            at_.takeLine();
            at_.skipBlanks();
        }
    }

    // Gives their number, at most eight.
    int readHexDigits(unsigned* number = nullptr) {
        int count = 0;
        unsigned value = 0;
        for (; count < 8; ++count) {
            const int digit = ascii::hexDigit(at_.peek());
            if (digit < 0) break;
            value = value << 4U | static_cast<unsigned>(digit);
            at_.next();
        }
        if (number) *number = value;
        return count;
    }

    TextCursor at_;
    const CodePage& codePage_;
    bool isVersion4_ = false;
    bool sawKey_ = false;
    std::optional<std::string> key_;  // folded; none: one that is removed
    std::map<std::string, std::string> values_;
};

}  // namespace

RegistryExport RegistryExport::parse(const std::string& file, std::string_view bytes,
                                     const CodePage& codePage) {
    const auto [text, isCutOff] = decodeExport(bytes, codePage);
    if (isCutOff) {
        TextCursor(file, text)
            .failAt(text.size(), "the export is cut off in the middle of a character");
    }
    RegistryExport result;
    result.values_ = ExportReader(file, text, codePage).read();
    return result;
}

const std::string* RegistryExport::find(std::string_view path) const {
    const auto separator = path.rfind('\\');
    if (separator == std::string_view::npos) return nullptr;
    const auto found =
        values_.find(foldedPath(foldedKey(path.substr(0, separator)), path.substr(separator + 1)));
    return found == values_.end() ? nullptr : &found->second;
}

// ---- the registry of a site ---------------------------------------------------------------------

struct SiteRegistry::Cache {
    FileCache<RegistryExport> file;
    std::mutex mutex = {};
    std::string lastFailure = {};

    std::string read(const std::string& path) {
        std::shared_ptr<const RegistryExport> values;
        try {
            values = file.current();
        } catch (const FileError& error) {
            throw runtimeErrorOf(error,
                                 "write the registry export of an installation there, or name "
                                 "another one by \"registry\" in headerdtc.toml");
        }
        if (const auto* value = values->find(path)) return *value;
        throw RuntimeError(CannotOpenKey,
                           "Unable to open registry key \"" + path + "\" for reading");
    }
    void note(const std::string& failure) {
        const std::lock_guard lock(mutex);
        lastFailure = failure;
    }
};

SiteRegistry::SiteRegistry(std::filesystem::path file, const CodePage& codePage)
    : cache_(
          new Cache{{std::move(file), [codePage](const std::string& name, std::string_view bytes) {
                         return RegistryExport::parse(name, bytes, codePage);
                     }}}) {}

SiteRegistry::~SiteRegistry() = default;

std::string SiteRegistry::RegRead(const std::string& path) {
    try {
        std::string value = cache_->read(path);
        cache_->note({});
        return value;
    } catch (const RuntimeError& error) {
        cache_->note(error.description());
        throw;
    }
}

std::string SiteRegistry::lastFailure() const {
    const std::lock_guard lock(cache_->mutex);
    return cache_->lastFailure;
}

}  // namespace headerdtc
