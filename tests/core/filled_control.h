#pragma once

#include "core/control_fixture.h"

namespace headerdtc {

// What a control writes in which everything that is stored or generated has a value of its own:
// "name: default -> value;", texts in quotes with "|" for the line ends within.
inline constexpr std::string_view FilledPage = R"(
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

inline testing::OrderedPropertyBag filledPage() {
    testing::OrderedPropertyBag bag;
    const std::string lines = replaceAll(FilledPage, "\n", "");
    for (const std::string_view line : splitText(lines, ";")) {
        const std::size_t arrow = line.find(" -> ");
        if (arrow == std::string::npos) continue;
        std::string value = replaceAll(line.substr(arrow + 4), "|", "\r\n");
        if (value.front() == '\'') value = value.substr(1, value.size() - 2);
        bag.set(line.substr(0, line.find(": ")), value);
    }
    return bag;
}

struct FilledControl : TestControl {
    FilledControl() {
        testing::OrderedPropertyBag page = filledPage();
        dtc.UserControl_ReadProperties(page);
    }
};

}  // namespace headerdtc
