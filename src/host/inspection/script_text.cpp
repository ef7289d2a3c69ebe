#include "host/inspection/script_text.h"

#include "platform/text.h"

#include <algorithm>

namespace headerdtc {
namespace {

constexpr std::string_view BuiltIn[] = {"DATE", "TIME", "NOW", "TIMER", "RND", "GETLOCALE"};

// Words that may stand before "Function" where one is defined.
constexpr std::string_view Modifiers[] = {"PUBLIC", "PRIVATE", "DEFAULT"};

bool isWordChar(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') ||
           (byte >= '0' && byte <= '9') || c == '_' || byte >= 0x80;
}

std::string_view withoutSpaceBefore(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r");
    return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

// Takes the word off the start of a text; empty when there is none.
std::string_view takeWord(std::string_view& text) {
    text = withoutSpaceBefore(text);
    const auto end = std::find_if_not(text.begin(), text.end(), isWordChar);
    const auto word = text.substr(0, static_cast<std::size_t>(end - text.begin()));
    text.remove_prefix(word.size());
    return word;
}

// The text behind a comment's begin removed; an apostrophe inside a string begins none.
std::string_view withoutComment(std::string_view line) {
    bool quoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == '"') quoted = !quoted;
        if (line[i] == '\'' && !quoted) return line.substr(0, i);
    }
    return line;
}

// Reads the lines of a text one by one.
class Reader {
  public:
    ScriptText read(std::string_view text) {
        for (const std::string_view line : splitText(text, "\n")) {
            readIncludes(line);
            readStatements(line);
        }
        return std::move(result_);
    }

  private:
    // <!--#INCLUDE FILE="..." -->
    void readIncludes(std::string_view line) {
        constexpr std::string_view Directive = "#include";
        for (auto at = line.find('#'); at != std::string_view::npos; at = line.find('#', at + 1)) {
            if (!equalIgnoringCase(line.substr(at, Directive.size()), Directive)) continue;
            std::string_view rest = line.substr(at + Directive.size());
            const std::string_view kind = takeWord(rest);
            rest = withoutSpaceBefore(rest);
            if (!rest.starts_with('=')) continue;
            rest = withoutSpaceBefore(rest.substr(1));
            if (!rest.starts_with('"') && !rest.starts_with('\'')) continue;
            const auto end = rest.find(rest.front(), 1);
            if (end == std::string_view::npos) continue;
            result_.includes.push_back(
                {equalIgnoringCase(kind, "virtual"), std::string(rest.substr(1, end - 1))});
        }
    }

    // A definition stands at the start of a statement: of a line, behind a colon, or behind the
    // mark that begins a script block.
    void readStatements(std::string_view line) {
        std::string_view rest = withoutComment(line);
        for (;;) {
            readStatement(rest);
            const auto next = rest.find_first_of(":%>");
            if (next == std::string_view::npos) return;
            rest.remove_prefix(next + 1);
        }
    }

    void readStatement(std::string_view statement) {
        std::string word = upperCase(takeWord(statement));
        if (word == "CLASS") inClass_ = true;
        if (word == "END" && equalIgnoringCase(takeWord(statement), "class")) inClass_ = false;
        while (std::find(std::begin(Modifiers), std::end(Modifiers), word) != std::end(Modifiers))
            word = upperCase(takeWord(statement));
        if (word != "FUNCTION" || inClass_) return;
        const std::string_view name = takeWord(statement);
        if (!name.empty()) result_.functions.insert(functionKey(name));
    }

    ScriptText result_;
    bool inClass_ = false;
};

}  // namespace

ScriptText ScriptText::read(std::string_view text) {
    return Reader().read(text);
}

std::string functionKey(std::string_view name) {
    return upperCase(name);
}

bool isFunctionName(std::string_view name) {
    return !name.empty() && !(name.front() >= '0' && name.front() <= '9') && name.front() != '_' &&
           std::all_of(name.begin(), name.end(), isWordChar);
}

bool isBuiltInFunction(std::string_view name) {
    return std::find(std::begin(BuiltIn), std::end(BuiltIn), functionKey(name)) !=
           std::end(BuiltIn);
}

}  // namespace headerdtc
