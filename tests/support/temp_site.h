#pragma once

#include "support/temp_folder.h"

namespace headerdtc::testing {

// A complete small site in a folder of its own: configuration, registry export, a catalogue with
// the providers "Orders" and "Stock", and a template.
class TempSite : public TempFolder {
  public:
    TempSite() {
        write("headerdtc.toml",
              "registry = \"velmora.reg\"\n[drives]\nC = \"c\"\n"
              "[datasource]\ncatalogue = \"catalogue.json\"\n");
        write("velmora.reg",
              "REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Zarvik\\Zarvik Velmora]\r\n"
              "\"InstallDir\"=\"C:\\\\Suite\"\r\n");
        write("catalogue.json", R"({"providers": [
  {"name": "Orders",
   "zeko": {"fields": [{"number": 1, "name": "ORDNO"}, {"number": 2, "name": "CUSTNO"},
                       {"number": 3, "name": "STATUS"}],
            "keyFields": ["ORDNO", "CUSTNO"]},
   "eai": {"groups": [{"name": "ORDERS", "fields": ["ORDNO", "CUSTNO"]},
                      {"name": "DELIVERY", "fields": ["CITY"]}],
           "keyFields": ["ORDNO"]}},
  {"name": "Stock",
   "zeko": {"fields": [{"number": 1, "name": "ITEMNO"}], "keyFields": ["ITEMNO"]}}]})");
        writeTemplate("<% ' <DATAPROVIDER>\n<ADD_ZEKO_RETURN_FIELDS>\n%>\n");
    }

    void writeTemplate(const std::string& text) const {
        write("c/Suite/Orvane/include/DTC_TEMPLATE.ASP", text);
    }

    // A page with one control that has these PARAM lines and this runtime text.
    static std::string page(const std::string& params, const std::string& runtimeText = "",
                            const std::string& id = "HeaderDTC1") {
        return "<html>\n" + control(params, runtimeText, id) + "\n</html>\n";
    }
    static std::string control(const std::string& params, const std::string& runtimeText = "",
                               const std::string& id = "HeaderDTC1") {
        return "<!--METADATA TYPE=\"DesignerControl\" startspan\r\n<OBJECT ID=\"" + id +
               "\" CLASSID=\"clsid:2F9DAB28-6BB4-469F-A568-9CA7A4217B69\">\r\n" + params +
               "</OBJECT>\r\n-->\r\n" + runtimeText +
               "<!--METADATA TYPE=\"DesignerControl\" endspan-->";
    }
    static std::string param(const std::string& name, const std::string& value) {
        return "\t<PARAM NAME=\"" + name + "\" VALUE=\"" + value + "\">\r\n";
    }
    // "A=1|B=2": properties and their values, and the PARAM lines of them.
    using Params = std::vector<std::pair<std::string, std::string>>;
    static Params paramsOf(const std::string& text) {
        Params params;
        std::istringstream stream(text);
        for (std::string each; std::getline(stream, each, '|');)
            params.emplace_back(each.substr(0, each.find('=')), each.substr(each.find('=') + 1));
        return params;
    }
    static std::string params(const std::string& text) { return params(paramsOf(text)); }
    static std::string params(const Params& params) {
        std::string lines;
        for (const auto& [name, value] : params)
            lines += param(name, value);
        return lines;
    }
    // One return field of "Orders", with everything that goes with it; or of another provider.
    static std::string ordersParams(const std::string& provider = "Orders") {
        return params(
            "ZEKOReturnFields0=1 - ORDNO|ZEKOCriteriaCount=2|EAICriteriaCount=2|"
            "ZEKOReturnFieldCount=1|DataProvider=" +
            provider +
            "|XSLFilename=xsl/Generic.xsl|NrOfZEKOI18NFieldnames=0|NrOfEAII18NFieldnames=0|"
            "NrOfZEKOI18NFieldValues=0|NrOfEAII18NFieldValues=0|"
            "LinkedDataProvider=ZEKOLinkedDataProvidersCombo|NrOfZEKOAvailableFieldsLinked=0|"
            "NrOfEAIAvailableFieldsLinked=0|NrOfSelectedZEKOLinkedFields=0|"
            "NrOfSelectedEAILinkedFields=0|NrOfZEKOToLinkKeyFields=0|NrOfEAIToLinkKeyFields=0");
    }
    // What the template makes of ordersParams().
    static std::string ordersText() {
        return "<% ' Orders\r\nmReturnFields.Add 1, \"ORDNO\"\r\n\t\t\t\r\n%>\r\n";
    }
};

}  // namespace headerdtc::testing
