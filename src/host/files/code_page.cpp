#include "host/files/code_page.h"

#include "controls/utf8.h"
#include "host/files/utf8_scan.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <iconv.h>
#include <map>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <vector>

namespace headerdtc {
namespace {

// The characters that stand for single bytes lie in a corner of the private use area that no
// code page and hardly any text uses: U+EF80 for 0x80 and so on.
constexpr char32_t ByteCharacters = 0xEF00;

bool standsForByte(char32_t character) {
    return character >= ByteCharacters + 0x80 && character <= ByteCharacters + 0xFF;
}

unsigned char unsignedOf(char c) {
    return static_cast<unsigned char>(c);
}

void appendReference(std::string& text, char32_t character) {
    text += "&#" + std::to_string(static_cast<unsigned long>(character)) + ';';
}

// ---- UTF-8 --------------------------------------------------------------------------------------

// A character as it stands for one byte is written in three; they begin EE BE or EE BF.
bool beginsByteCharacter(std::string_view text) {
    return text.size() >= 3 && text[0] == '\xEE' && (text[1] == '\xBE' || text[1] == '\xBF');
}

std::string decodeUtf8(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        auto length = asciiLength(bytes);
        // A character of ours that is in the file already is taken as the three bytes that it is,
        // so that they come back as three.
        if (length == 0 && !beginsByteCharacter(bytes)) length = characterLength(bytes);
        if (length > 0) {
            text.append(bytes.substr(0, length));
        } else {
            text += utf8::encode(ByteCharacters + unsignedOf(bytes.front()));
            length = 1;
        }
        bytes.remove_prefix(length);
    }
    return text;
}

// Takes the characters that stand for bytes from the start of a text and gives the bytes.
std::string takeByteCharacters(std::string_view& text) {
    std::string bytes;
    while (beginsByteCharacter(text) && characterLength(text) == 3) {
        bytes += static_cast<char>(utf8::first(text) & 0xFFU);
        text.remove_prefix(3);
    }
    return bytes;
}

// `append` puts a run of characters that stand for bytes behind the result.
template <class Append>
std::string encodeUtf8(std::string_view text, Append append) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        auto upTo = std::min(text.find('\xEE'), text.size());
        result.append(text.substr(0, upTo));
        text.remove_prefix(upTo);
        const std::string_view rest = text;
        const std::string bytes = takeByteCharacters(text);
        if (!bytes.empty()) {
            append(result, bytes, rest.substr(0, rest.size() - text.size()));
        } else if (!text.empty()) {
            result += text.front();
            text.remove_prefix(1);
        }
    }
    return result;
}

// ---- single-byte code pages ---------------------------------------------------------------------

class Converter {
  public:
    explicit Converter(const std::string& name) : handle_(iconv_open("UTF-32LE", name.c_str())) {
        if (!isOpen()) throw std::invalid_argument("unknown code page \"" + name + '"');
    }
    ~Converter() {
        if (isOpen()) iconv_close(handle_);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    enum class Kind { Character, Undefined, NoSingleByte };
    struct Result {
        Kind kind;
        char32_t character;
    };

    Result convert(unsigned byte) {
        char in = static_cast<char>(byte);
        std::array<unsigned char, 16> buffer{};
        char* from = &in;
        char* to = reinterpret_cast<char*>(buffer.data());
        std::size_t left = 1;
        std::size_t room = buffer.size();
        iconv(handle_, nullptr, nullptr, nullptr, nullptr);
        errno = 0;
        const bool taken = iconv(handle_, &from, &left, &to, &room) != static_cast<std::size_t>(-1);
        if (!taken) return {errno == EILSEQ ? Kind::Undefined : Kind::NoSingleByte, 0};
        // Code pages with combining characters keep one back until they know what follows.
        iconv(handle_, nullptr, nullptr, &to, &room);
        if (buffer.size() - room != 4) return {Kind::NoSingleByte, 0};
        return {Kind::Character, static_cast<char32_t>(buffer[0] | buffer[1] << 8U |
                                                       buffer[2] << 16U | buffer[3] << 24U)};
    }

  private:
    bool isOpen() const { return reinterpret_cast<std::intptr_t>(handle_) != -1; }

    iconv_t handle_;
};

std::string lowerCase(std::string name) {
    for (auto& c : name) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
    }
    return name;
}

}  // namespace

struct CodePage::Table {
    std::array<std::string, 128> characters;         // of the bytes from 0x80, as UTF-8
    std::vector<std::pair<char32_t, char>> byBytes;  // sorted by character

    std::optional<char> byteOf(char32_t character) const {
        const auto found = std::lower_bound(byBytes.begin(), byBytes.end(), character,
                                            [](const auto& a, char32_t b) { return a.first < b; });
        if (found == byBytes.end() || found->first != character) return std::nullopt;
        return found->second;
    }

    static std::shared_ptr<const Table> make(const std::string& name);
};

std::shared_ptr<const CodePage::Table> CodePage::Table::make(const std::string& name) {
    Converter converter(name);
    for (unsigned byte = 0; byte < 0x80; ++byte) {
        const auto [kind, character] = converter.convert(byte);
        if (kind != Converter::Kind::Character || character != byte)
            throw std::invalid_argument("the lower half of the code page \"" + name +
                                        "\" is not ASCII");
    }

    std::map<char32_t, char> bytes;
    std::array<char32_t, 128> characters{};
    for (unsigned byte = 0x80; byte <= 0xFF; ++byte) {
        const auto [kind, character] = converter.convert(byte);
        if (kind == Converter::Kind::NoSingleByte)
            throw std::invalid_argument("the code page \"" + name +
                                        "\" has characters of more than one byte; use one of "
                                        "single bytes, or utf-8");
        const bool isNew = kind == Converter::Kind::Character && !standsForByte(character) &&
                           bytes.emplace(character, static_cast<char>(byte)).second;
        characters[byte - 0x80] = isNew ? character : 0;
    }
    // Undefined bytes of the control range are the control characters of the same number, as on
    // Windows; the others get characters of their own.
    for (unsigned byte = 0x80; byte <= 0xFF; ++byte) {
        auto& character = characters[byte - 0x80];
        if (character != 0) continue;
        character = byte < 0xA0 && !bytes.contains(byte) ? byte : ByteCharacters + byte;
        bytes.emplace(character, static_cast<char>(byte));
    }

    auto table = std::make_shared<Table>();
    std::transform(characters.begin(), characters.end(), table->characters.begin(), utf8::encode);
    table->byBytes.assign(bytes.begin(), bytes.end());
    return table;
}

CodePage::CodePage(const std::string& name) : name_(lowerCase(name)) {
    if (name_ == "utf8") name_ = "utf-8";
    if (name_ == "utf-8") return;
    // The C library would take more behind a '/', and its own idea of a default for "".
    const bool isName = !name_.empty() && std::all_of(name_.begin(), name_.end(), [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ||
               std::string_view("-_.:").find(c) != std::string_view::npos;
    });
    if (!isName) throw std::invalid_argument("\"" + name + "\" is not the name of a code page");

    static std::mutex mutex;
    static std::map<std::string, std::shared_ptr<const Table>> tables;
    const std::lock_guard lock(mutex);
    auto& table = tables[name_];
    if (!table) table = Table::make(name_);
    table_ = table;
}

const CodePage& CodePage::utf8() {
    static const CodePage page;
    return page;
}

std::string CodePage::decode(std::string_view bytes) const {
    if (isUtf8()) return decodeUtf8(bytes);
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 8);
    while (!bytes.empty()) {
        const auto ascii = asciiLength(bytes);
        text.append(bytes.substr(0, ascii));
        bytes.remove_prefix(ascii);
        if (bytes.empty()) break;
        text += table_->characters[unsignedOf(bytes.front()) - 0x80U];
        bytes.remove_prefix(1);
    }
    return text;
}

template <class Lacking>
std::string CodePage::encodeByTable(std::string_view text, Lacking lacking) const {
    std::string bytes;
    bytes.reserve(text.size());
    while (!text.empty()) {
        const auto ascii = asciiLength(text);
        bytes.append(text.substr(0, ascii));
        text.remove_prefix(ascii);
        if (text.empty()) break;
        const auto length = characterLength(text);
        const char32_t character = length > 0 ? utf8::first(text) : 0xFFFD;
        if (const auto byte = table_->byteOf(character)) {
            bytes += *byte;
        } else {
            lacking(bytes, character);
        }
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return bytes;
}

std::string CodePage::encode(std::string_view text) const {
    if (isUtf8()) {
        return encodeUtf8(text, [](std::string& result, const std::string& bytes,
                                   std::string_view) { result += bytes; });
    }
    return encodeByTable(text, [](std::string& bytes, char32_t) { bytes += '?'; });
}

std::string CodePage::encodeWithReferences(std::string_view text) const {
    if (isUtf8()) {
        // Bytes that would come back as another character, being UTF-8 when put together, have to
        // be named one by one.
        return encodeUtf8(
            text, [](std::string& result, const std::string& bytes, std::string_view characters) {
                if (decodeUtf8(bytes) == characters) {
                    result += bytes;
                } else {
                    for (const char byte : bytes)
                        appendReference(result, ByteCharacters + unsignedOf(byte));
                }
            });
    }
    return encodeByTable(text, appendReference);
}

bool CodePage::has(char32_t character) const {
    if (character < 0x80) return true;
    if (isUtf8()) return character <= 0x10FFFF && (character < 0xD800 || character > 0xDFFF);
    return table_->byteOf(character).has_value();
}

}  // namespace headerdtc
