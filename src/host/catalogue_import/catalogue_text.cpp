#include "host/catalogue_import/catalogue_text.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <vector>

namespace headerdtc {
namespace {

constexpr std::size_t LineWidth = 100;

std::string quoted(const std::string& text) {
    using Json = nlohmann::json;
    return Json(text).dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::vector<std::string> quotedAll(const std::vector<std::string>& texts) {
    std::vector<std::string> all(texts.size());
    std::transform(texts.begin(), texts.end(), all.begin(), quoted);
    return all;
}

// "[a, b, c]", going on in a new line below the first item where a line is full. `column` is how
// much of the line is written already; `indent` that of the lines after it.
std::string list(const std::vector<std::string>& items, std::size_t column, std::size_t indent) {
    std::string text = "[";
    std::size_t used = column + 1;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const bool isLast = i + 1 == items.size();
        if (i > 0 && used + items[i].size() + 4 > LineWidth) {
            text.back() = '\n';
            text += std::string(indent, ' ');
            used = indent;
        }
        text += items[i] + (isLast ? "" : ", ");
        used += items[i].size() + 2;
    }
    return text + "]";
}

std::string zekoText(const Catalogue::Zeko& zeko) {
    std::vector<std::string> fields;
    fields.reserve(zeko.fields.size());
    for (const auto& field : zeko.fields)
        fields.push_back("{\"number\": " + std::to_string(field.number) +
                         ", \"name\": " + quoted(field.name) + "}");
    return "   \"zeko\": {\"fields\": " + list(fields, 22, 23) +
           ",\n            \"keyFields\": " + list(quotedAll(zeko.keyFields), 25, 26) + "}";
}

std::string eaiText(const Catalogue::Eai& eai) {
    std::string groups;
    for (const auto& group : eai.groups) {
        const std::string head = "{\"name\": " + quoted(group.name) + ", \"fields\": ";
        groups += (groups.empty() ? "" : ",\n                      ") + head +
                  list(quotedAll(group.fields), 22 + head.size(), 26) + "}";
    }
    return "   \"eai\": {\"groups\": [" + groups +
           "],\n           \"keyFields\": " + list(quotedAll(eai.keyFields), 24, 25) + "}";
}

}  // namespace

std::string catalogueText(const Catalogue& catalogue) {
    std::string text = "{\"providers\": [";
    for (const auto& provider : catalogue.providers) {
        text += std::string(&provider == &catalogue.providers.front() ? "" : ",") +
                "\n  {\"name\": " + quoted(provider.name);
        if (provider.zeko) text += ",\n" + zekoText(*provider.zeko);
        if (provider.eai) text += ",\n" + eaiText(*provider.eai);
        text += "}";
    }
    return text + "]}\n";
}

}  // namespace headerdtc
