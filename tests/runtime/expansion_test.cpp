#include "runtime/expansion.h"

#include "platform/runtime_error.h"
#include "runtime/plain_expansion.h"
#include "support/prologue.h"

namespace headerdtc::expansion_test {

using Steps = std::vector<std::pair<std::string, std::string>>;  // placeholder, value

std::string expanded(const std::string& text, const Steps& steps) {
    std::vector<std::string_view> placeholders;
    for (const auto& [placeholder, value] : steps)
        placeholders.push_back(placeholder);
    const ExpansionSteps prepared(placeholders);
    Expansion expansion(text, prepared);
    for (const auto& [placeholder, value] : steps)
        expansion.replace(value);
    return expansion.text();
}

TEST(Expansion, LaterStepsActOnWhatEarlierOnesBroughtInOrJoined) {
    const Steps steps = {
        {"<OUTER>", "<INNER>-<OUTER>"},  // not looked at again in its own step
        {"<GAP>", ""},
        {"<INNER>", "in"},
        {"<PROVIDER>", "OVID"},
        {"<DATAPROVIDER>", "Orders"},
        {"<OUTER>", "again"},
    };
    EXPECT_EQ(expanded("<OUTER> <IN<GAP>NER> <DATAPR<PROVIDER>ER>", steps), "in-again in Orders");
}

// A page's values may bring in placeholders of other values of the same page, a thousand times
// each.
TEST(Expansion, ValuesThatMultiplyEndBeforeTheMemoryDoes) {
    const auto times = [](int count, const std::string& text) {
        std::string all;
        for (int i = 0; i < count; ++i)
            all += text;
        return all;
    };
    const std::string many = times(3000, "<B>"), more = times(3000, "<C>");
    const std::string wide = times(10, "<C>"), widest(100'000, 'x');
    for (const auto& [b, c] : {std::pair{more, std::string("x")}, std::pair{wide, widest}}) {
        EXPECT_EQ(numberOf([&] { expanded("<A>", {{"<A>", many}, {"<B>", b}, {"<C>", c}}); }), 14);
    }
    EXPECT_EQ(expanded("<A>", {{"<A>", many}, {"<B>", wide}, {"<C>", "x"}}),
              std::string(30'000, 'x'));
}

// ---- comparison with the plain way --------------------------------------------------------------

// The first are some of a page's. The others are short and share beginnings and endings: by chance
// alone they come about all the time.
const std::vector<std::vector<std::string>> PlaceholderSets = {
    {"<PATH_TO_ROOT>", "<DATAPROVIDER>", "<ADD_EAI_RETURN_FIELDS>", "<SPECIFY_EAI_I18N_FIELDS>",
     "<SPECIFY_EAI_I18N_FIELDVALUES>", "<ADD_EAI_RETURN_FIELDS>", "<LINKED_FIELDS_VARNAME>",
     "<LINKED_DATAPROVIDER>", "<LINKED_DATAPROVIDER_VARNAME>", "<DATAPROVIDER_VARNAME>"},
    {"<A>", "<AB>", "<B>", "<BA>", "<A>", "<>", "<AAB>", "<B>"},
    {"<ABCDEFGHIJ>", "<ABC>", "<J>", "<ABCDEFGHIJKLMNOP>", "<ABC>", "<P>"},
};

class CaseMaker {
  public:
    explicit CaseMaker(std::uint64_t seed) : random_(seed) {}

    ExpansionCase make() {
        ExpansionCase made;
        const auto& placeholders = PlaceholderSets[below(PlaceholderSets.size())];
        const std::size_t steps = 1 + below(placeholders.size());
        for (std::size_t i = 0; i < steps; ++i)
            made.placeholders.push_back(placeholders[below(placeholders.size())]);
        made.text = text(made.placeholders, 12);
        for (std::size_t i = 0; i < steps; ++i)
            made.values.push_back(below(4) == 0 ? "" : text(made.placeholders, 4));
        return made;
    }

    std::size_t below(std::size_t bound) { return random_() % bound; }

  private:
    // Pieces of placeholders: whole, or cut off at either end; now and then something else.
    std::string text(const std::vector<std::string>& placeholders, std::size_t mostPieces) {
        static constexpr std::string_view Others[] = {"<", "<<", ">", "A", "x", "\r\n", "_", "<%"};
        std::string made;
        for (std::size_t pieces = below(mostPieces + 1); pieces > 0; --pieces) {
            const std::string& placeholder = placeholders[below(placeholders.size())];
            const std::size_t cut = below(placeholder.size() + 1);
            const std::size_t kind = below(6);
            made += kind < 2    ? placeholder
                    : kind == 2 ? placeholder.substr(0, cut)
                    : kind == 3 ? placeholder.substr(cut)
                    : kind == 4 ? placeholder.substr(cut, below(4))
                                : std::string(Others[below(std::size(Others))]);
        }
        for (char& c : made) {
            if (c >= 'A' && c <= 'Z' && below(8) == 0) c = static_cast<char>(c + 32);
        }
        return made;
    }

    std::minstd_rand random_;
};

// HEADERDTC_EXPANSION_CASES sets how many texts are tried, HEADERDTC_EXPANSION_SEED where they
// begin.
TEST(Expansion, AgreesWithOneReplacementAfterTheOther) {
    const auto setting = [](const char* name, std::uint64_t otherwise) {
        const char* text = std::getenv(name);
        return text ? std::strtoull(text, nullptr, 10) : otherwise;
    };
    const std::uint64_t cases = setting("HEADERDTC_EXPANSION_CASES", 50'000);
    const std::uint64_t seed = setting("HEADERDTC_EXPANSION_SEED", 1);
    CaseMaker maker(seed);
    for (std::uint64_t i = 0; i < cases; ++i) {
        const ExpansionCase input = maker.make();
        const std::string difference = differenceFromPlain(input, maker.below(4) == 0);
        ASSERT_EQ(difference, "") << "case " << i << " of seed " << seed << "\n  text "
                                  << input.text << "\n  steps " << PrintToString(input.placeholders)
                                  << "\n  values " << PrintToString(input.values);
    }
}

}  // namespace headerdtc::expansion_test
