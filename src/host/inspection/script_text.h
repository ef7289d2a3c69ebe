#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace headerdtc {

// What one file of server script brings along. Names are as functionKey makes them.
struct ScriptText {
    enum class Form {
        Page,   // HTML; script stands in <% ... %> and in <SCRIPT RUNAT=Server>
        Script  // nothing but script
    };
    struct Include {
        bool isVirtual = false;  // from the site's root, rather than from the including file
        std::string path;
    };

    std::unordered_set<std::string> functions;
    // Everything that is declared at the top level, functions among it: a second declaration of one
    // of them is an error. In the order of the text, as written.
    std::vector<std::string> declared;
    std::vector<Include> includes;
    bool isOpen = false;        // its last <% has no %>
    std::string openProcedure;  // the function that is not ended, as written; empty: none

    // Text is UTF-8. Comments do not count, nor do methods of classes.
    static ScriptText read(std::string_view text, Form form);
};

// The names that a page's script uses: words outside of texts and comments, but for members of
// objects (what stands behind a full stop).
std::unordered_set<std::string> namesUsedIn(std::string_view page);

// The lines that a statement of a script takes at most, as far as they are continued by " _".
int longestStatement(std::string_view script);

// Names of functions compare without regard to case.
std::string functionKey(std::string_view name);

// Whether a text has the form of a function's name.
bool isFunctionName(std::string_view name);
// Whether the language keeps that word for itself, so that nothing can have it as its name.
bool isReservedWord(std::string_view name);
// Whether every script engine knows a function of that name.
bool isBuiltInFunction(std::string_view name);

}  // namespace headerdtc
