#include "host/inspection/script_text.h"

#include "platform/text.h"

#include <algorithm>
#include <functional>
#include <span>

namespace headerdtc {
namespace {

// clang-format off
constexpr std::string_view BuiltIn[] = {
    "ABS", "ARRAY", "ASC", "ASCB", "ASCW", "ATN", "CBOOL", "CBYTE", "CCUR", "CDATE", "CDBL", "CHR",
    "CHRB", "CHRW", "CINT", "CLNG", "COS", "CREATEOBJECT", "CSNG", "CSTR", "DATE", "DATEADD",
    "DATEDIFF", "DATEPART", "DATESERIAL", "DATEVALUE", "DAY", "ESCAPE", "EVAL", "EXP", "FILTER",
    "FIX", "FORMATCURRENCY", "FORMATDATETIME", "FORMATNUMBER", "FORMATPERCENT", "GETLOCALE",
    "GETOBJECT", "GETREF", "HEX", "HOUR", "INPUTBOX", "INSTR", "INSTRB", "INSTRREV", "INT",
    "ISARRAY", "ISDATE", "ISEMPTY", "ISNULL", "ISNUMERIC", "ISOBJECT", "JOIN", "LBOUND", "LCASE",
    "LEFT", "LEFTB", "LEN", "LENB", "LOADPICTURE", "LOG", "LTRIM", "MID", "MIDB", "MINUTE", "MONTH",
    "MONTHNAME", "MSGBOX", "NOW", "OCT", "REPLACE", "RGB", "RIGHT", "RIGHTB", "RND", "ROUND",
    "RTRIM", "SCRIPTENGINE", "SCRIPTENGINEBUILDVERSION", "SCRIPTENGINEMAJORVERSION",
    "SCRIPTENGINEMINORVERSION", "SECOND", "SETLOCALE", "SGN", "SIN", "SPACE", "SPLIT", "SQR",
    "STRCOMP", "STRING", "STRREVERSE", "TAN", "TIME", "TIMER", "TIMESERIAL", "TIMEVALUE", "TRIM",
    "TYPENAME", "UBOUND", "UCASE", "UNESCAPE", "VARTYPE", "WEEKDAY", "WEEKDAYNAME", "YEAR"};

constexpr std::string_view Reserved[] = {
    "AND", "AS", "BOOLEAN", "BYREF", "BYTE", "BYVAL", "CALL", "CASE", "CLASS", "CONST", "CURRENCY",
    "DEBUG", "DIM", "DO", "DOUBLE", "EACH", "ELSE", "ELSEIF", "EMPTY", "END", "ENDIF", "ENUM",
    "EQV", "EVENT", "EXIT", "FALSE", "FOR", "FUNCTION", "GET", "GOTO", "IF", "IMP", "IMPLEMENTS",
    "IN", "INTEGER", "IS", "LET", "LIKE", "LONG", "LOOP", "LSET", "ME", "MOD", "NEW", "NEXT", "NOT",
    "NOTHING", "NULL", "ON", "OPTION", "OPTIONAL", "OR", "PARAMARRAY", "PRESERVE", "PRIVATE",
    "PUBLIC", "RAISEEVENT", "REDIM", "REM", "RESUME", "RSET", "SELECT", "SET", "SHARED", "SINGLE",
    "STATIC", "STOP", "SUB", "THEN", "TO", "TRUE", "TYPE", "TYPEOF", "UNTIL", "VARIANT", "WEND",
    "WHILE", "WITH", "XOR"};
// clang-format on

constexpr std::size_t LongestName = 255;

bool isAmong(std::span<const std::string_view> words, std::string_view name) {
    return std::binary_search(words.begin(), words.end(), functionKey(name));
}

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

// Calls with the place of each character that stands neither in a text nor in a comment; at the
// comment's begin it stops.
template <class Use>
std::size_t forEachCodeChar(std::string_view line, Use&& use) {
    bool isQuoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == '"') isQuoted = !isQuoted;
        if (isQuoted || line[i] == '"') continue;
        if (line[i] == '\'') return i;
        use(i);
    }
    return line.size();
}

// A line's pieces between the characters that part them outside of texts and brackets, its comment
// left out.
std::vector<std::string_view> piecesOf(std::string_view line, char separator) {
    std::vector<std::string_view> pieces;
    std::size_t begin = 0;
    int depth = 0;
    const std::size_t end = forEachCodeChar(line, [&](std::size_t i) {
        depth += (line[i] == '(') - (line[i] == ')');
        if (line[i] != separator || depth > 0) return;
        pieces.push_back(line.substr(begin, i - begin));
        begin = i + 1;
    });
    pieces.push_back(line.substr(begin, end - begin));
    return pieces;
}

bool isContinued(std::string_view line) {
    std::size_t end = forEachCodeChar(line, [](std::size_t) {});
    if (end < line.size()) return false;  // its end is a comment
    line = trimSpace(line);
    if (equalIgnoringCase(line.substr(0, 4), "rem ")) return false;
    return line == "_" || line.ends_with(" _") || line.ends_with("\t_");
}

// Calls with each statement of a script and the number of lines that it takes. Statements on one
// line count as that line's.
void forEachStatement(std::string_view script,
                      const std::function<void(std::string_view, int)>& use) {
    std::string line;
    int lines = 0;
    const auto give = [&] {
        for (std::string_view statement : piecesOf(line, ':')) {
            statement = trimSpace(statement);
            std::string_view rest = statement;
            if (equalIgnoringCase(takeWord(rest), "rem")) break;
            if (!statement.empty()) use(statement, lines);
        }
        line.clear();
        lines = 0;
    };
    for (const std::string_view next : splitText(script, "\n")) {
        ++lines;
        line += trimSpace(next);
        if (!isContinued(next)) {
            give();
        } else {
            line.back() = ' ';  // in the place of the mark
        }
    }
    give();
}

std::size_t findIgnoringCase(std::string_view text, std::string_view what, std::size_t from) {
    const auto found =
        std::search(text.begin() + static_cast<std::ptrdiff_t>(std::min(from, text.size())),
                    text.end(), what.begin(), what.end(), [](char a, char b) {
                        return equalIgnoringCase({&a, 1}, {&b, 1});
                    });
    return found == text.end() ? std::string_view::npos
                               : static_cast<std::size_t>(found - text.begin());
}

// Takes a page apart: calls one function with each piece of script, another with the text around
// them. Returns whether the last piece of script is not closed.
bool takeApart(std::string_view page, const std::function<void(std::string_view)>& script,
               const std::function<void(std::string_view)>& around) {
    constexpr std::string_view Tag = "<script", EndTag = "</script";
    std::size_t tag = findIgnoringCase(page, Tag, 0);
    for (std::size_t at = 0;;) {
        const std::size_t mark = page.find("<%", at);
        if (tag != std::string_view::npos && tag < at) tag = findIgnoringCase(page, Tag, at);
        if (tag < mark) {
            const std::size_t body = std::min(page.find('>', tag), page.size() - 1) + 1;
            const std::size_t end = std::min(findIgnoringCase(page, EndTag, body), page.size());
            around(page.substr(at, tag - at));
            const auto attributes = page.substr(tag, body - tag);
            const bool isServers = findIgnoringCase(attributes, "runat", 0) < attributes.size();
            (isServers ? script : around)(page.substr(body, end - body));
            at = end;
        } else if (mark != std::string_view::npos) {
            around(page.substr(at, mark - at));
            const std::size_t end = page.find("%>", mark + 2);
            script(page.substr(mark + 2, std::min(end, page.size()) - mark - 2));
            if (end == std::string_view::npos) return true;
            at = end + 2;
        } else {
            around(page.substr(at));
            return false;
        }
    }
}

class Reader {
  public:
    ScriptText read(std::string_view text, ScriptText::Form form) {
        const auto script = [&](std::string_view piece) { readScript(piece); };
        if (form == ScriptText::Form::Script) {
            script(text);
        } else {
            result_.isOpen =
                takeApart(text, script, [&](std::string_view piece) { readIncludes(piece); });
        }
        return std::move(result_);
    }

  private:
    // <!--#INCLUDE FILE="..." -->
    void readIncludes(std::string_view text) {
        constexpr std::string_view Directive = "#include";
        for (auto at = text.find('#'); at != std::string_view::npos; at = text.find('#', at + 1)) {
            if (!equalIgnoringCase(text.substr(at, Directive.size()), Directive)) continue;
            std::string_view rest = text.substr(at + Directive.size());
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

    void readScript(std::string_view script) {
        forEachStatement(script,
                         [&](std::string_view statement, int) { readStatement(statement); });
    }

    void readStatement(std::string_view statement) {
        std::string_view rest = statement;
        std::string word = upperCase(takeWord(rest));
        if (word == "END") {
            const std::string what = upperCase(takeWord(rest));
            if (what == "CLASS") inClass_ = false;
            if (what == "FUNCTION" || what == "SUB") result_.openProcedure.clear();
            return;
        }
        const bool isTop = !inClass_ && result_.openProcedure.empty();
        bool isShared = false;
        while (word == "PUBLIC" || word == "PRIVATE" || word == "DEFAULT") {
            isShared = true;
            statement = rest;
            word = upperCase(takeWord(rest));
        }
        if (word == "FUNCTION" || word == "SUB" || word == "CLASS") {
            const std::string_view name = takeWord(rest);
            if (name.empty()) return;
            if (isTop) result_.declared.emplace_back(name);
            if (isTop && word == "FUNCTION") result_.functions.insert(functionKey(name));
            if (word == "CLASS") {
                inClass_ = true;
            } else if (!inClass_ && rest.find('{') == std::string_view::npos) {
                result_.openProcedure = name;  // the other language ends it by a bracket
            }
        } else if (isTop && (word == "CONST" || word == "DIM")) {
            declareAll(rest);
        } else if (isTop && isShared) {
            declareAll(statement);
        }
    }

    // The names of "A, B(3), C = 1".
    void declareAll(std::string_view names) {
        for (std::string_view piece : piecesOf(names, ',')) {
            const std::string_view name = takeWord(piece);
            if (!name.empty()) result_.declared.emplace_back(name);
        }
    }

    ScriptText result_;
    bool inClass_ = false;
};

}  // namespace

ScriptText ScriptText::read(std::string_view text, Form form) {
    return Reader().read(text, form);
}

std::unordered_set<std::string> namesUsedIn(std::string_view page) {
    std::unordered_set<std::string> names;
    const auto gather = [&](std::string_view statement, int) {
        std::size_t next = 0;  // where a word may begin
        forEachCodeChar(statement, [&](std::size_t i) {
            if (i < next || !isWordChar(statement[i])) return;
            std::string_view rest = statement.substr(i);
            const std::string_view word = takeWord(rest);
            next = i + word.size();
            if (i == 0 || statement[i - 1] != '.') names.insert(functionKey(word));
        });
    };
    takeApart(
        page, [&](std::string_view script) { forEachStatement(script, gather); },
        [](std::string_view) {});
    return names;
}

int longestStatement(std::string_view script) {
    int longest = 0;
    forEachStatement(script,
                     [&](std::string_view, int lines) { longest = std::max(longest, lines); });
    return longest;
}

std::string functionKey(std::string_view name) {
    return upperCase(name);
}

bool isFunctionName(std::string_view name) {
    return !name.empty() && name.size() <= LongestName &&
           !(name.front() >= '0' && name.front() <= '9') && name.front() != '_' &&
           std::all_of(name.begin(), name.end(), isWordChar);
}

bool isReservedWord(std::string_view name) {
    return isAmong(Reserved, name);
}

bool isBuiltInFunction(std::string_view name) {
    return isAmong(BuiltIn, name);
}

}  // namespace headerdtc
