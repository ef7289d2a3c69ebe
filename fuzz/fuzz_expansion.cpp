// The expansion agrees with one plain replacement after the other.

#include "fuzz/fuzz_tools.h"
#include "runtime/plain_expansion.h"

using namespace headerdtc;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static constexpr std::string_view Placeholders[] = {"<A>",
                                                        "<AB>",
                                                        "<B>",
                                                        "<BA>",
                                                        "<>",
                                                        "<ADD_EAI_RETURN_FIELDS>",
                                                        "<DATAPROVIDER>",
                                                        "<DATAPROVIDER_VARNAME>"};
    // Pieces between NULs: the text, then a placeholder's number and a value for each step.
    std::vector<std::string> pieces(1);
    for (std::size_t i = 0; i < size; ++i) {
        if (data[i] == 0) {
            pieces.emplace_back();
        } else {
            pieces.back() += static_cast<char>(data[i]);
        }
    }
    testing::ExpansionCase input;
    input.text = pieces.front();
    for (std::size_t i = 1; i < pieces.size() && i <= 12; ++i) {
        const std::string& piece = pieces[i];
        const std::size_t number = piece.empty() ? 0 : static_cast<unsigned char>(piece.front());
        input.placeholders.emplace_back(Placeholders[number % std::size(Placeholders)]);
        input.values.push_back(piece.substr(piece.empty() ? 0 : 1));
    }
    const std::string difference = testing::differenceFromPlain(input, size % 4 == 0);
    fuzz::require(difference.empty(), difference.c_str());
    return 0;
}
