#pragma once

#include "host/page/control_instance.h"
#include "support/fake_surroundings.h"

namespace headerdtc::fuzz {

// Stand-ins with two data providers and a template.
inline void furnish(testing::FakeSurroundings& outside) {
    outside.dataSources.providers = {
        {.name = "Orders",
         .zekoFields = {{"1", "ORDNO"}, {"2", "CUSTNO"}, {"10", "CITY"}},
         .zekoKeyFields = {"ORDNO", "CUSTNO"},
         .eaiGroups = {{"ORDERS", {"ORDNO", "CUSTNO"}}, {"ADDRESS", {"CITY"}}},
         .eaiKeyFields = {"ORDNO"}},
        {.name = "Stock", .zekoFields = {{"1", "ITEMNO"}}, .zekoKeyFields = {"ITEMNO"}}};
    outside.registry.values["HKLM\\SOFTWARE\\Zarvik\\Zarvik Velmora\\InstallDir"] = "C:\\Suite";
    outside.textFiles.files["C:\\SUITE\\Orvane\\include\\DTC_TEMPLATE.ASP"] =
        "<EXTRA_INCLUDES><USER_DEFINED_SCRIPTS><DATAPROVIDER><ADD_EAI_RETURN_FIELDS>"
        "<ADD_ZEKO_RETURN_FIELDS><SPECIFY_EAI_CRITERIA><SPECIFY_ZEKO_CRITERIA>"
        "<SPECIFY_EAI_I18N_FIELDS><SPECIFY_ZEKO_LINKED_FIELDVALUES><LINKED_DATAPROVIDER>\n";
    outside.site.entries = {{2, "/site/"}, {6, "/site/page.asp"}};
}

}  // namespace headerdtc::fuzz
