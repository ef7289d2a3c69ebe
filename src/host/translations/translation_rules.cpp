#include "host/translations/translation_rules.h"

#include "platform/ascii.h"
#include "platform/text.h"

#include <algorithm>
#include <set>

namespace headerdtc {
namespace {

constexpr std::string_view Space = " \t\r\n";

std::vector<std::string_view> wordsOf(std::string_view text) {
    std::vector<std::string_view> words;
    for (auto at = text.find_first_not_of(Space); at != std::string_view::npos;
         at = text.find_first_not_of(Space, at)) {
        const auto end = std::min(text.find_first_of(Space, at), text.size());
        words.push_back(text.substr(at, end - at));
        at = end;
    }
    return words;
}

// ---- the rules of a text beside its source -----------------------------------------------------

// One word is often the same in another language, several hardly ever.
std::string unchanged(std::string_view source, std::string_view target) {
    if (source != target || wordsOf(source).size() < 2) return {};
    return "is the same as the source";
}

std::string blanksAtTheEnds(std::string_view source, std::string_view target) {
    const auto begins = [](std::string_view text) { return text.find_first_not_of(Space) != 0; };
    const auto ends = [](std::string_view text) {
        return text.find_last_not_of(Space) != text.size() - 1;
    };
    if (begins(source) != begins(target))
        return begins(target) ? "begins with a blank, unlike the source"
                              : "does not begin with a blank, unlike the source";
    if (ends(source) != ends(target))
        return ends(target) ? "ends with a blank, unlike the source"
                            : "does not end with a blank, unlike the source";
    return {};
}

// Marks that end a sentence, each with what other scripts write for it.
constexpr std::string_view EndMarks[][3] = {
    {".", "\xE3\x80\x82", "\xE0\xA5\xA4"},  // full stop; ideographic, danda
    {"!", "\xEF\xBC\x81", ""},
    {"?", "\xEF\xBC\x9F", "\xD8\x9F"},
    {":", "\xEF\xBC\x9A", ""},
    {";", "\xEF\xBC\x9B", ""},
    {"\xE2\x80\xA6", "...", ""},
};

// The mark at the end of a text, as the first writes it; empty for none. Longer marks come first:
// three full stops are another mark than one.
std::string_view endMark(std::string_view text) {
    text = trimSpace(text);
    for (auto marks = std::rbegin(EndMarks); marks != std::rend(EndMarks); ++marks) {
        for (const std::string_view mark : *marks) {
            if (!mark.empty() && text.ends_with(mark)) return (*marks)[0];
        }
    }
    return {};
}

std::string endPunctuation(std::string_view source, std::string_view target) {
    const auto wanted = endMark(source), found = endMark(target);
    if (wanted == found) return {};
    if (wanted.empty()) return "ends with \"" + std::string(found) + "\", unlike the source";
    return "does not end with \"" + std::string(wanted) + "\" like the source";
}

constexpr std::string_view Digits = "0123456789";

// The length of a place "%1", "%s", "%-5.2f" or "%%" at the start of a text; 0 for "50 %" and "5%".
std::size_t percentPlace(std::string_view text) {
    constexpr std::string_view Conversions = "sdifuxXeg%";
    const auto end = std::min(text.find_first_not_of("-+#.0123456789", 1), text.size());
    if (end < text.size() && Conversions.find(text[end]) != std::string_view::npos) return end + 1;
    const auto number = std::min(text.find_first_not_of(Digits, 1), text.size());
    return number > 1 ? number : 0;
}

// The same for "{0}", "{name}" and "<NAME>".
std::size_t bracketPlace(std::string_view text) {
    const auto end = std::find_if_not(text.begin() + 1, text.end(), ascii::isWordChar);
    const char close = text[0] == '{' ? '}' : '>';
    const auto length = static_cast<std::size_t>(end - text.begin()) + 1;
    return end != text.end() && length > 2 && *end == close ? length : 0;
}

// The places that a program fills in.
std::multiset<std::string> placeMarks(std::string_view text) {
    std::multiset<std::string> marks;
    for (auto at = text.find_first_of("%{<"); at != std::string_view::npos;
         at = text.find_first_of("%{<", at)) {
        const std::string_view rest = text.substr(at);
        const std::size_t length = rest[0] == '%' ? percentPlace(rest) : bracketPlace(rest);
        if (length > 0) marks.emplace(rest.substr(0, length));
        at += std::max<std::size_t>(length, 1);
    }
    return marks;
}

std::string placesToFill(std::string_view source, std::string_view target) {
    const auto wanted = placeMarks(source), found = placeMarks(target);
    std::vector<std::string> missing, added;
    std::set_difference(wanted.begin(), wanted.end(), found.begin(), found.end(),
                        std::back_inserter(missing));
    std::set_difference(found.begin(), found.end(), wanted.begin(), wanted.end(),
                        std::back_inserter(added));
    if (!missing.empty()) return "lacks " + missing.front() + " of the source";
    if (!added.empty()) return "has " + added.front() + ", which the source does not have";
    return {};
}

std::string doubledWord(std::string_view text) {
    const auto words = wordsOf(text);
    const auto found = std::adjacent_find(words.begin(), words.end(), [](auto a, auto b) {
        const bool isWord = static_cast<unsigned char>(a[0]) > '9';
        return isWord && equalIgnoringCase(a, b);
    });
    return found == words.end() ? std::string() : std::string(*found);
}

std::string doubledWords(std::string_view source, std::string_view target) {
    const std::string word = doubledWord(target);
    if (word.empty() || !doubledWord(source).empty()) return {};
    return "has the word \"" + word + "\" twice in a row";
}

std::string lineEnds(std::string_view source, std::string_view target) {
    const auto wanted = std::count(source.begin(), source.end(), '\n');
    const auto found = std::count(target.begin(), target.end(), '\n');
    if (wanted == found) return {};
    return "has " + std::to_string(found) + " line ends, the source " + std::to_string(wanted);
}

constexpr TranslationRule Rules[] = {
    {"unchanged", "a text of several words is the same as its source",
     "One word is often the same in two languages, several hardly ever: the source was "
     "copied and not translated.",
     unchanged},
    {"blanks", "a text begins or ends with a blank, and its source does not",
     "A blank at an end is there to part the text from what the page puts beside it. "
     "Give the translation the same.",
     blanksAtTheEnds},
    {"end-punctuation", "a text ends with another mark than its source",
     "Of two texts one is a sentence, a question or a caption with a colon, the other is "
     "not. Marks of other scripts count as theirs.",
     endPunctuation},
    {"place-marks", "the places to be filled in (%1, {0}) are not those of the source",
     "A program fills these places in. A missing or misspelt one shows the mark, or "
     "fails.",
     placesToFill},
    {"doubled-word", "a word stands twice in a row",
     "A slip of the hand, unless the source has one too.", doubledWords},
    {"line-ends", "a text has more or fewer lines than its source",
     "Where a text stands on several lines, the page has room for as many.", lineEnds},
    {"unknown-label", "a field is translated by a label that has no text at all",
     "The field is translated by a label that I18NTEXT does not have, so that no text is "
     "found. Choose another label, or give it a text in the page editor.",
     nullptr},
    {"empty-label", "a field is translated by an empty label",
     "The row names no label, so that no text is found. Choose one in the page editor.", nullptr},
    {"missing-source", "a label has texts, but none to translate from (1033)",
     "Texts are translated from locale 1033. Write that text in the page editor.", nullptr},
    {"repeated-text", "a label has several texts in one language",
     "Only one of the texts is ever shown, and which one is up to the database. Take the "
     "others out of I18NTEXT.",
     nullptr},
    {"missing", "a label has no text in a language",
     "The page shows the field's own name in that language. 'headerdtc translations "
     "export --gaps' writes what a translator has to fill in.",
     nullptr},
};

class FaultFinder {
  public:
    explicit FaultFinder(const std::vector<std::string>& locales) : locales_(locales) {}

    std::vector<TranslationFault> find(const TranslationTable& table) {
        for (const auto& [label, entry] : table.entries)
            look(label, entry);
        for (const std::string& place : table.unlabelled)
            faults_.push_back({"empty-label", "", "", place + " is translated by an empty label"});
        return std::move(faults_);
    }

  private:
    void look(const std::string& label, const TranslationTable::Entry& entry) {
        const auto tell = [&](std::string_view rule, const std::string& locale,
                              const std::string& text) {
            faults_.push_back({rule, label, locale, text});
        };
        if (entry.texts.empty()) {
            tell("unknown-label", "",
                 "has no text in any language, but translates " + entry.places.front());
            return;
        }
        for (const std::string& locale : entry.repeated)
            tell("repeated-text", locale, "has several texts; only one of them is ever shown");
        const std::string* source = entry.text(SourceLocale);
        if (!source) tell("missing-source", SourceLocale, "has no text to translate from");
        for (const std::string& locale : locales_) {
            const std::string* target = entry.text(locale);
            if (!target) {
                if (source) tell("missing", locale, "is not translated: \"" + *source + "\"");
                continue;
            }
            if (!source) continue;
            for (const TranslationRule& rule : Rules) {
                const std::string fault = rule.check ? rule.check(*source, *target) : "";
                if (!fault.empty()) tell(rule.id, locale, "\"" + *target + "\" " + fault);
            }
        }
    }

    const std::vector<std::string>& locales_;
    std::vector<TranslationFault> faults_;
};

}  // namespace

std::span<const TranslationRule> translationRules() {
    return Rules;
}

std::vector<TranslationFault> findTranslationFaults(const TranslationTable& table,
                                                    const std::vector<std::string>& locales) {
    return FaultFinder(locales).find(table);
}

}  // namespace headerdtc
