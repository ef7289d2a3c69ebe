#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace headerdtc {

// What one file of server script brings along.
struct ScriptText {
    struct Include {
        bool isVirtual = false;  // from the site's root, rather than from the including file
        std::string path;
    };

    std::unordered_set<std::string> functions;  // their names as functionKey makes them
    std::vector<Include> includes;

    // Text is UTF-8. Script in comments does not count, nor do methods of classes; whether a piece
    // is server script at all is not looked at.
    static ScriptText read(std::string_view text);
};

// Names of functions compare without regard to case.
std::string functionKey(std::string_view name);

// Whether a text can be the name of a function.
bool isFunctionName(std::string_view name);

// Whether every script engine knows a function of that name that can be called without arguments.
bool isBuiltInFunction(std::string_view name);

}  // namespace headerdtc
