#include "host/site/catalogue.h"

#include "host/failures.h"
#include "host/files/file_error.h"

#include <gmock/gmock.h>

namespace headerdtc {
namespace {

using namespace ::testing;
using namespace headerdtc::testing;

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
}

TEST(Catalogue, WhatItDoesNotKnowIsEmpty) {
    TempFolder folder;
    CatalogueDataSources sources(folder.write("catalogue.json", Example));
    const auto source = sources.createDataSource();
    for (const char* provider : {"orders", "", "Café"}) {
        EXPECT_EQ(source->zekoFields(provider).Count(), 0);
        EXPECT_EQ(source->zekoKeyFields(provider).Count(), 0);
        EXPECT_EQ(source->eaiGroups(provider).Count(), 0);
        EXPECT_EQ(source->eaiKeyFields(provider).Count(), 0);
    }
    EXPECT_EQ(source->eaiGroupFields("Orders", "orders").Count(), 0);
}

TEST(Catalogue, FaultsNameTheirPlace) {
    const std::string zeko = R"({"providers": [{"name": "A", "zeko": {"keyFields": [], "fields": )";
    const std::pair<std::string, std::string> cases[] = {
        {"",
         "c.json:1:1: this is no JSON: syntax error while parsing value - unexpected end of input"},
        {"[]", "c.json:1:1: here the catalogue, an object has to stand, not a list"},
        {"{}", "c.json:1:1: \"providers\" (a list of providers) is missing here"},
        {"{\"providers\": [],\n \"providers\": []}",
         "c.json:2:2: the key \"providers\" is there twice"},
        {"{\n\"provider\": []}", "c.json:2:1: unknown key \"provider\" in the catalogue"},
        {"{\"providers\": [7]}",
         "c.json:1:16: here a provider, an object has to stand, not a number"},
        {"{\"providers\":\n [ {\"name\" :null}]}",
         "c.json:2:13: here a name in quotes has to stand, not null"},
        {"{\"providers\": [{\"name\": \"A\"}, {\"eai\": {}}]}",
         "c.json:1:39: \"groups\" (a list of record groups) is missing here"},
        {"{\"providers\": [{\"name\": \"A\"},\n{}]}",
         "c.json:2:1: \"name\" (a name in quotes) is missing"},
        {"{\"providers\": [{\"name\": \"A\"},\n{\"name\":\"A\"}]}",
         "c.json:2:9: two entries are called \"A\"; give each provider its own name"},
        {zeko + "[{\"number\": 1.5}]}}]}",
         "c.json:1:78: here an integer has to stand, not a number with"},
        {zeko + "[{\"number\": \"1\"}]}}]}",
         "c.json:1:78: here an integer has to stand, not a text"},
        {zeko + "[{\"number\": 99999999999999999999}]}}]}", "not a number with a fraction"},
        {zeko + "[{\"number\": 18446744073709551615}]}}]}", "not a number that is too large"},
        {zeko + "[{\"number\": 1}]}}]}",
         "c.json:1:67: \"name\" (a name in quotes) is missing here"},
        {zeko + "[{\"number\": 1, \"name\": \"A\"},\n {\"number\": 1, \"name\": \"B\"}]}}]}",
         "c.json:2:13: the provider has two fields with the number 1"},
        {"{\"providers\": [\n{\"name\": tru}]}", "c.json:2:10: this is no JSON: syntax error"},
        {"{\"providers\": [\n{\"name\" \"A\"}]}", "c.json:2:9: this is no JSON"},
        {"{\"providers\": [\n{\"name\": \"a\nb\"}]}", "c.json:2:12: this is no JSON"},
        {"{\"providers\": []} {", "c.json:1:19: this is no JSON"},
        {"{\"providers\": [\"\xFF\"]}", "c.json:1:17: this is no JSON"},
    };
    for (const auto& [json, problem] : cases)
        EXPECT_THAT(problemIn(json), HasSubstr(problem)) << json;
}

TEST(Catalogue, NoCutOffOrDamagedCatalogueIsTaken) {
    const auto end = Example.rfind('}');
    for (std::size_t size = 0; size < end; ++size)
        EXPECT_THAT(problemIn(Example.substr(0, size)), StartsWith("c.json:")) << size;
    EXPECT_THAT(problemIn(std::string(100'000, '[')), StartsWith("c.json:1:1: here the catalogue"));
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

}  // namespace
}  // namespace headerdtc
