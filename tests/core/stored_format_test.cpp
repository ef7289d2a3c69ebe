#include "core/filled_control.h"
#include "core/stored_keys.h"

namespace headerdtc::stored_format_test {

// 'text', a number, or a Boolean: the type shows.
std::string written(const PropertyValue& value) {
    if (const auto* flag = std::get_if<bool>(&value)) return *flag ? "true" : "false";
    if (const auto* number = std::get_if<std::int16_t>(&value)) return std::to_string(*number);
    return "'" + std::get<std::string>(value) + "'";
}

// "name: default -> value".
std::vector<std::string> writesOf(HeaderDTC& dtc) {
    testing::OrderedPropertyBag bag;
    dtc.UserControl_WriteProperties(bag);
    std::vector<std::string> lines;
    for (const auto& write : bag.writes)
        lines.push_back(write.name + ": " + written(write.fallback) + " -> " +
                        written(write.value));
    return lines;
}

TEST(StoredFormatTest, AFilledControlWritesTheseNamesTypesAndDefaultsInThisOrder) {
    FilledControl filled;
    std::string writes;
    for (const std::string& line : writesOf(filled.dtc))
        writes += line + ";";
    EXPECT_EQ(replaceAll(writes, "\r\n", "|"), replaceAll(FilledPage, "\n", ""));
}

TEST(StoredFormatTest, AnEmptyControlKeepsTheCountsThatNoIntegerEqualsByDefault) {
    TestControl empty;
    testing::OrderedPropertyBag bag;
    empty.dtc.UserControl_WriteProperties(bag);
    std::vector<std::string> stored;
    for (const auto& [name, value] : bag.entries)
        stored.push_back(name + "=" + written(value));
    EXPECT_THAT(
        stored,
        ElementsAre("ZEKOCriteriaCount=2", "EAICriteriaCount=2", "XSLFilename='xsl/Generic.xsl'",
                    "NrOfZEKOI18NFieldnames=0", "NrOfEAII18NFieldnames=0",
                    "NrOfZEKOI18NFieldValues=0", "NrOfEAII18NFieldValues=0",
                    "NrOfZEKOAvailableFieldsLinked=0", "NrOfEAIAvailableFieldsLinked=0",
                    "NrOfSelectedZEKOLinkedFields=0", "NrOfSelectedEAILinkedFields=0",
                    "NrOfZEKOToLinkKeyFields=0", "NrOfEAIToLinkKeyFields=0"));
}

TEST(StoredFormatTest, TheNamesThatAreWrittenAreKnownWithTheirTypesAndNoOthers) {
    FilledControl filled;
    testing::OrderedPropertyBag bag;
    filled.dtc.UserControl_WriteProperties(bag);
    for (const auto& write : bag.writes) {
        SCOPED_TRACE(write.name);
        const auto type = storedTypeOf(write.name);
        ASSERT_TRUE(type.has_value());
        EXPECT_EQ(static_cast<std::size_t>(*type), write.value.index());
    }
    EXPECT_EQ(storedTypeOf("UserDefinedScript"), StoredType::String) << "the empty key's";
    EXPECT_EQ(storedTypeOf("a b\"UserDefinedScript"), StoredType::String);
    for (const char* name :
         {"", "zekoreturnfields0", "ZEKOReturnFields", "ZEKOReturnFields01", "ZEKOReturnFields-1",
          "ZEKOReturnFields1x", "ZEKOCriteria1", "ZEKOCriteria1_", "ZEKOCriteria_1",
          "ZEKOCriteria01_1", "DataProvider1", "ZEKOCriteriaTypex", "Unheard"})
        EXPECT_FALSE(storedTypeOf(name).has_value()) << name;
}

TEST(StoredFormatTest, PartsStandInTheOrderOfTheTabsAndZekoFirst) {
    const char* const names[] = {"DataProvider", "ZEKOReturnFields0", "EAIReturnFields0"};
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j)
            EXPECT_EQ(*partOf(names[i]) < *partOf(names[j]), i < j) << names[i] << ", " << names[j];
    }
}

}  // namespace headerdtc::stored_format_test
