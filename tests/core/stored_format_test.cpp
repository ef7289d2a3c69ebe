#include "core/filled_control.h"
#include "core/stored_keys.h"

namespace headerdtc {
namespace {

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

// Line ends within a value are "|" here.
constexpr const char* Writes = R"(
EnableExtraFilters: false -> true;ZEKOReturnFields0: '' -> '1 - ORDNO';
ZEKOReturnFields1: '' -> '2 - CUSTNO';ZEKOReturnFields2: '' -> '3 - DATE';
EAIReturnFields0: '' -> 'ORDERS.ORDNO';EAIReturnFields1: '' -> 'ORDERS.CUSTNO';
ZEKOCriteria1_1: '' -> 'ORDNO';ZEKOCriteria1_2: '' -> '==';ZEKOCriteria1_3: '' -> '10';
ZEKOCriteria1_4: '' -> '';ZEKOCriteria2_1: '' -> 'CUSTNO';ZEKOCriteria2_2: '' -> '<=';
ZEKOCriteria2_3: '' -> 'getCust';ZEKOCriteria2_4: '' -> '...';ZEKOCriteria3_1: '' -> '';
ZEKOCriteria3_2: '' -> '';ZEKOCriteria3_3: '' -> '';ZEKOCriteria3_4: '' -> '';
EAICriteria1_1: '' -> 'CUSTNO';EAICriteria1_2: '' -> '>=';EAICriteria1_3: '' -> 'fromFile';
EAICriteria1_4: '' -> '';ZEKOCriteriaCount: 0 -> 4;EAICriteriaCount: 0 -> 2;
ZEKOReturnFieldCount: 0 -> 3;EAIReturnFieldCount: 0 -> 2;DataProvider: '' -> 'Orders';
ZEKOAvailableFieldsCount: 0 -> 1;EAIAvailableFieldsCount: 0 -> 2;
ZEKOAvailableFields0: '' -> '4 - TOTAL';EAIAvailableFields0: '' -> 'ORDERS.TOTAL';
EAIAvailableFields1: '' -> 'ORDERS.STATE';ZEKOKeyFieldsCount: 0 -> 2;EAIKeyFieldsCount: 0 -> 1;
ZEKOKeyFieldnames0: '' -> 'ORDNO';ZEKOKeyFieldnames1: '' -> 'CUSTNO';
EAIKeyFieldnames0: '' -> 'CUSTNO';NrOfUserDefinedScripts: 0 -> 2;NrOfExtraIncludes: 0 -> 2;
UserDefinedScript1: '' -> 'getCust';
getCustUserDefinedScript: '' -> 'Function getCust()|End Function';
UserDefinedScript2: '' -> 'other';otherUserDefinedScript: '' -> 'Function other()|End Function';
ZEKOCriteriaType1: '' -> '10';10ZEKOCriteriaType: 0 -> 0;ZEKOCriteriaType2: '' -> 'getCust';
getCustZEKOCriteriaType: 0 -> 2;EAICriteriaType1: '' -> 'fromFile';
fromFileEAICriteriaType: 0 -> 1;ExtraIncludes0: '' -> 'Include/a.asp';
ExtraIncludes1: '' -> 'b.asp';XSLFilename: '' -> 'xsl/Orders.xsl';
NrOfZEKOI18NFieldnames: '0' -> 2;NrOfEAII18NFieldnames: '0' -> 1;
ZEKOI18NFieldnames0: '' -> '1 - ORDNO';ZEKOI18NFieldnames1: '' -> '3 - DATE';
EAII18NFieldnames0: '' -> 'ORDERS.CUSTNO';NrOfZEKOI18NFieldValues: '0' -> 1;
NrOfEAII18NFieldValues: '0' -> 2;ZEKOI18NFieldValues0: '' -> '2 - CUSTNO';
EAII18NFieldValues0: '' -> 'ORDERS.ORDNO';EAII18NFieldValues1: '' -> 'ORDERS.CUSTNO';
LinkedDataProvider: '' -> 'Stock';NrOfZEKOAvailableFieldsLinked: '0' -> 2;
NrOfEAIAvailableFieldsLinked: '0' -> 1;ZEKOAvailableFieldsLinked0: '' -> '1 - ITEM';
ZEKOAvailableFieldsLinked1: '' -> '2 - PLACE';EAIAvailableFieldsLinked0: '' -> 'STOCK.ITEM';
NrOfSelectedZEKOLinkedFields: '0' -> 1;NrOfSelectedEAILinkedFields: '0' -> 2;
EAISelectedLinkedFields0: '' -> 'STOCK.PLACE';EAISelectedLinkedFields1: '' -> 'STOCK.AMOUNT';
ZEKOSelectedLinkedFields0: '' -> '3 - AMOUNT';NrOfZEKOToLinkKeyFields: '0' -> 2;
NrOfEAIToLinkKeyFields: '0' -> 1;ZEKOToLinkKeyFields0: '' -> 'ITEM';
ZEKOToLinkKeyFields1: '' -> 'PLACE';EAIToLinkKeyFields0: '' -> 'PLACE';
NrOfLinkedZEKOFields: 2 -> 3;ZEKOLinkFromFields1: '' -> '1 - ORDNO';
ZEKOLinkToFields1: '' -> 'ITEM';ZEKOLinkFromFields2: '' -> '2 - CUSTNO';
ZEKOLinkToFields2: '' -> 'PLACE';NrOfLinkedEAIFields: 2 -> 2;
EAILinkFromFields1: '' -> 'ORDERS.ORDNO';EAILinkToFields1: '' -> 'PLACE';
)";

TEST(StoredFormatTest, AFilledControlWritesTheseNamesTypesAndDefaultsInThisOrder) {
    FilledControl filled;
    std::string writes;
    for (const std::string& line : writesOf(filled.dtc))
        writes += line + ";";
    EXPECT_EQ(replaceAll(writes, "\r\n", "|"), replaceAll(Writes, "\n", ""));
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

}  // namespace
}  // namespace headerdtc
