#include "host/files/code_page.h"

#include "platform/ascii.h"
#include "platform/utf8.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <iconv.h>
#include <map>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <vector>

namespace headerdtc {
namespace {

unsigned char unsignedOf(char c) {
    return static_cast<unsigned char>(c);
}

void appendReference(std::string& text, char32_t character) {
    text += "&#" + std::to_string(static_cast<unsigned long>(character)) + ';';
}

// ---- bytes that are no characters
// -----------------------------------------------------------------

// Such a byte becomes two of the code points that Unicode keeps free for use inside programs, one
// for each half of it. So every character stays what it is, those for private use too; only this
// pair is not itself where it stands in a file.
constexpr char32_t HighHalves = 0xFDE0;  // for 0x8 to 0xF
constexpr char32_t LowHalves = 0xFDD0;
constexpr std::string_view HalvesBegin = "\xEF\xB7";
constexpr std::size_t CarrierLength = 6;

std::string carrierOf(unsigned char byte) {
    return utf8::encode(HighHalves + (byte >> 4U) - 8) + utf8::encode(LowHalves + (byte & 0xFU));
}

// The byte for which the start of a text stands.
std::optional<unsigned char> carriedByte(std::string_view text) {
    if (text.size() < CarrierLength || !text.starts_with(HalvesBegin) ||
        !text.substr(CarrierLength / 2).starts_with(HalvesBegin))
        return std::nullopt;
    const unsigned high = unsignedOf(text[2]) - 0xA0U;
    const unsigned low = unsignedOf(text[5]) - 0x90U;
    if (high >= 8 || low >= 16) return std::nullopt;
    return static_cast<unsigned char>((high + 8) << 4U | low);
}

// Takes the ASCII bytes, which are the same in every code page, from the start of a text.
std::string_view takeAscii(std::string_view& text) {
    const auto ascii = text.substr(0, utf8::asciiLength(text));
    text.remove_prefix(ascii.size());
    return ascii;
}

// ---- UTF-8 --------------------------------------------------------------------------------------

std::string decodeUtf8(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        text.append(takeAscii(bytes));
        if (bytes.empty()) break;
        // A pair of ours that is in the file already is taken as the bytes that it is, so that they
        // come back.
        const bool isCarrier = carriedByte(bytes).has_value();
        const auto length = isCarrier ? 0 : utf8::characterLength(bytes);
        const auto taken = length > 0 ? length : isCarrier ? CarrierLength : 1;
        if (length > 0) {
            text.append(bytes.substr(0, length));
        } else {
            for (const char byte : bytes.substr(0, taken))
                text += carrierOf(unsignedOf(byte));
        }
        bytes.remove_prefix(taken);
    }
    return text;
}

// Takes what stands for bytes from the start of a text and gives the bytes.
std::string takeCarriedBytes(std::string_view& text) {
    std::string bytes;
    while (const auto byte = carriedByte(text)) {
        bytes += static_cast<char>(*byte);
        text.remove_prefix(CarrierLength);
    }
    return bytes;
}

// `append` puts a run of bytes that are no characters behind the result; it is given the text that
// stands for them too.
template <class Append>
std::string encodeUtf8(std::string_view text, Append append) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        auto upTo = std::min(text.find(HalvesBegin), text.size());
        result.append(text.substr(0, upTo));
        text.remove_prefix(upTo);
        const std::string_view rest = text;
        const std::string bytes = takeCarriedBytes(text);
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
        if (isOpen()) return;
        // A code page that cannot be loaded looks to the C library like an unknown one.
        handle_ = iconv_open("UTF-32LE", "ISO-8859-1");
        if (!isOpen()) {
            throw std::runtime_error("the code page \"" + name +
                                     "\" cannot be loaded: there is not enough memory, or the C "
                                     "library's conversions (gconv) are not installed");
        }
        iconv_close(handle_);
        throw std::invalid_argument("unknown code page \"" + name + '"');
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
        // For code pages with combining characters the library holds the last character back until
        // it knows what follows; this makes it give it.
        iconv(handle_, nullptr, nullptr, &to, &room);
        if (buffer.size() - room != 4) return {Kind::NoSingleByte, 0};
        return {Kind::Character, static_cast<char32_t>(buffer[0] | buffer[1] << 8U |
                                                       buffer[2] << 16U | buffer[3] << 24U)};
    }

  private:
    bool isOpen() const { return reinterpret_cast<std::intptr_t>(handle_) != -1; }

    iconv_t handle_;
};

}  // namespace

struct CodePage::Table {
    std::array<std::string, 128> texts;                   // of the bytes from 0x80, as UTF-8
    std::vector<std::pair<char32_t, char>> byCharacters;  // sorted by character

    bool isCharacter(unsigned char byte) const { return !carriedByte(texts[byte - 0x80U]); }

    std::optional<char> byteOf(char32_t character) const {
        const auto found = std::lower_bound(byCharacters.begin(), byCharacters.end(), character,
                                            [](const auto& a, char32_t b) { return a.first < b; });
        if (found == byCharacters.end() || found->first != character) return std::nullopt;
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
        const bool isNew = kind == Converter::Kind::Character &&
                           bytes.emplace(character, static_cast<char>(byte)).second;
        characters[byte - 0x80] = isNew ? character : 0;
    }
    auto table = std::make_shared<Table>();
    for (unsigned byte = 0x80; byte <= 0xFF; ++byte) {
        // Undefined bytes of the control range are the control characters of the same number, as on
        // Windows.
        auto& character = characters[byte - 0x80];
        if (character == 0 && byte < 0xA0 && bytes.emplace(byte, static_cast<char>(byte)).second)
            character = byte;
        table->texts[byte - 0x80] =
            character != 0 ? utf8::encode(character) : carrierOf(static_cast<unsigned char>(byte));
    }
    table->byCharacters.assign(bytes.begin(), bytes.end());
    return table;
}

CodePage::CodePage(const std::string& name) : name_(name) {
    std::ranges::transform(name_, name_.begin(), ascii::lower);
    if (name_ == "utf8") name_ = "utf-8";
    if (name_ == "utf-8") return;
    // Only plain names: the C library reads options behind a '/', and takes "" for its own default.
    const bool isName = !name_.empty() && std::all_of(name_.begin(), name_.end(), [](char c) {
        return ascii::isWordChar(c) || std::string_view("-.:").find(c) != std::string_view::npos;
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
        text.append(takeAscii(bytes));
        if (bytes.empty()) break;
        text += table_->texts[unsignedOf(bytes.front()) - 0x80U];
        bytes.remove_prefix(1);
    }
    return text;
}

template <class Lacking>
std::string CodePage::encodeByTable(std::string_view text, Lacking lacking) const {
    std::string bytes;
    bytes.reserve(text.size());
    while (!text.empty()) {
        bytes.append(takeAscii(text));
        if (text.empty()) break;
        if (const auto byte = carriedByte(text); byte && !table_->isCharacter(*byte)) {
            bytes += static_cast<char>(*byte);
            text.remove_prefix(CarrierLength);
            continue;
        }
        const char32_t character = utf8::take(text).value_or(utf8::Replacement);
        if (const auto byte = table_->byteOf(character)) {
            bytes += *byte;
        } else {
            lacking(bytes, character);
        }
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
    if (!isUtf8()) return encodeByTable(text, appendReference);
    // Bytes that would come back as another character, being UTF-8 when put together, have to be
    // named one by one.
    return encodeUtf8(text,
                      [](std::string& result, const std::string& bytes, std::string_view carriers) {
                          if (decodeUtf8(bytes) == carriers) {
                              result += bytes;
                              return;
                          }
                          for (; !carriers.empty(); carriers.remove_prefix(CarrierLength / 2))
                              appendReference(result, utf8::first(carriers));
                      });
}

std::u32string CodePage::lacking(std::string_view text) const {
    std::u32string characters;
    if (isUtf8()) return characters;
    encodeByTable(text, [&](std::string&, char32_t character) {
        if (characters.find(character) == std::u32string::npos) characters += character;
    });
    return characters;
}

std::string CodePage::lackingInWords(std::string_view text) const {
    std::string words;
    for (const char32_t character : lacking(text)) {
        std::array<char, 16> number{};
        std::snprintf(number.data(), number.size(), " (U+%04X)", static_cast<unsigned>(character));
        words.append(words.empty() ? "" : ", ").append(utf8::encode(character)) += number.data();
    }
    return words;
}

}  // namespace headerdtc
