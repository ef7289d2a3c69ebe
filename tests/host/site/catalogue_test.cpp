#include "host/site/catalogue.h"

#include "host/files/file_error.h"
#include "support/prologue.h"

namespace headerdtc::catalogue_test {

const std::string Example = R"({"providers": [
  {"name": "Orders",
   "zeko": {"fields": [{"number": 10, "name": "ORDNO"}, {"number": 2, "name": "CUSTNO"}],
            "keyFields": ["ORDNO", "CUSTNO"]},
   "eai":  {"groups": [{"name": "ORDERS", "fields": ["ORDNO", "CUSTNO"]},
                       {"name": "LINES", "fields": []}],
            "keyFields": ["ORDNO"]}},
  {"name": "Café", "eai": {"keyFields": [], "groups": []}}]}
)";

std::string problemIn(const std::string& json) {
    return errorOf<FileError>([&] { Catalogue::parse("c.json", json); });
}

std::vector<std::string> itemsOf(const Dictionary<std::string>& dictionary) {
    std::vector<std::string> items;
    for (const auto& [key, item] : dictionary)
        items.push_back(item);
    return items;
}

TEST(Catalogue, KeepsEveryOrder) {
    TempFolder folder;
    CatalogueDataSources sources(folder.write("catalogue.json", "\xEF\xBB\xBF" + Example));
    const auto source = sources.createDataSource();
    EXPECT_THAT(source->providerNames(), ElementsAre("Orders", "Café"));
    EXPECT_THAT(source->zekoFields("Orders"),
                ElementsAre(Pair("10", "ORDNO"), Pair("2", "CUSTNO")));
    EXPECT_THAT(itemsOf(source->zekoKeyFields("Orders")), ElementsAre("ORDNO", "CUSTNO"));
    EXPECT_THAT(itemsOf(source->eaiGroups("Orders")), ElementsAre("ORDERS", "LINES"));
    EXPECT_THAT(itemsOf(source->eaiGroupFields("Orders", "ORDERS")),
                ElementsAre("ORDNO", "CUSTNO"));
    EXPECT_THAT(itemsOf(source->eaiKeyFields("Orders")), ElementsAre("ORDNO"));
    // What it does not know is empty.
    for (const auto& fields :
         {source->zekoFields("orders"), source->zekoKeyFields("Café"), source->eaiGroups(""),
          source->eaiKeyFields("orders"), source->eaiGroupFields("Orders", "orders")})
        EXPECT_EQ(fields.Count(), 0);
}

TEST(Catalogue, FaultsNameTheirPlace) {
    const std::string zeko = R"({"providers": [{"name": "A", "zeko": {"keyFields": [], "fields": )";
    for (const auto& [json, problem] : casesOf("host/cases/catalogue.txt"))
        EXPECT_THAT(problemIn(replaceAll(json, "{zeko}", zeko)), HasSubstr(problem)) << json;
}

TEST(Catalogue, NoCutOffOrDamagedCatalogueIsTaken) {
    const auto end = Example.rfind('}');
    for (std::size_t size = 0; size < end; ++size)
        EXPECT_THAT(problemIn(Example.substr(0, size)), StartsWith("c.json:")) << size;
    EXPECT_THAT(problemIn(std::string(100'000, '[')),
                StartsWith("c.json:1:1: expected the catalogue"));
    EXPECT_THAT(problemIn("{\"providers\": [" + std::string(100'000, '{')),
                StartsWith("c.json:1:17: "));
}

TEST(CatalogueDataSources, AMissingOrMalformedFileFailsEachRequest) {
    TempFolder folder;
    const auto file = folder / "catalogue.json";
    CatalogueDataSources sources(file);
    const auto source = sources.createDataSource();
    const auto ask = [&] { source->providerNames(); };
    EXPECT_EQ(numberOf(ask), 53);
    EXPECT_EQ(errorOf<RuntimeError>(ask),
              "File not found: " + file.string() +
                  ": cannot be read: No such file or directory; write the data-source catalogue "
                  "there, or name another one by \"catalogue\" in [datasource] of headerdtc.toml");
    EXPECT_THROW(sources.current(), FileError);

    folder.write("catalogue.json", "{\n]");
    EXPECT_EQ(numberOf(ask), 57);
    EXPECT_THAT(errorOf<RuntimeError>(ask),
                StartsWith("Device I/O error: " + file.string() + ":2:1: this is no JSON: "));

    folder.write("catalogue.json", Example);
    EXPECT_EQ(source->providerNames().size(), 2U);
    std::filesystem::remove(file);
    std::filesystem::create_directory(file);
    EXPECT_EQ(numberOf(ask), 75);
}

}  // namespace headerdtc::catalogue_test
