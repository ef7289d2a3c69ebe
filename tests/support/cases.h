#pragma once

#include <fstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace headerdtc::testing {

// What a text of a file of cases stands for: \n, \r, \t, \0, \\ and \xFF are what they are in C++.
inline std::string unescaped(const std::string& text) {
    std::string made;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            made += text[i];
        } else if (text.at(++i) == 'x') {
            made += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
            i += 2;
        } else {
            constexpr std::string_view Letters = "nrt0\\", Meant("\n\r\t\0\\", 5);
            made += Meant.at(Letters.find(text[i]));
        }
    }
    return made;
}

// The cases of a file of tests/, one in a line, as what is given and, behind "=>", what is
// expected.
// "# " begins a remark.
inline std::vector<std::pair<std::string, std::string>> casesOf(const std::string& file) {
    std::ifstream lines(HEADERDTC_SOURCE_DIR "/tests/" + file);
    std::vector<std::pair<std::string, std::string>> cases;
    for (std::string line; std::getline(lines, line);) {
        const auto arrow = line.rfind(" =>");
        if (line.starts_with("# ") || arrow == std::string::npos) continue;
        const auto expected = std::min(line.size(), arrow + 4);
        cases.emplace_back(unescaped(line.substr(0, arrow)), unescaped(line.substr(expected)));
    }
    if (cases.empty()) throw std::runtime_error("no cases in " + file);
    return cases;
}

}  // namespace headerdtc::testing
