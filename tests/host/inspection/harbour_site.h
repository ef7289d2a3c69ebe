#pragma once

#include "host/generation/site_generation.h"
#include "host/inspection/rules/page_inspection.h"
#include "support/prologue.h"
#include "support/temp_site.h"

namespace headerdtc::testing {

// The site of a harbour office: ships and berths, with include file, stylesheet and template.
class HarbourSite : public TempSite {
  public:
    HarbourSite() {
        fs::copy_file(HEADERDTC_SOURCE_DIR "/tests/support/harbour.json", *this / "catalogue.json",
                      fs::copy_options::overwrite_existing);
        write("c/Suite/xsl/Generic.xsl", "<xsl/>");
        write("c/Suite/Include/Tides.asp",
              "<!--#include file=\"Clock.asp\" -->\n<%\n"
              "Public Function HighWater()\n\tHighWater = Tide(1)\nEnd Function\n%>\n");
        write("c/Suite/Include/Clock.asp", "<% Function Watch() %>\n");
        writeTemplate(
            "<%\n' <DATAPROVIDER> <LINKED_DATAPROVIDER>\n<ADD_ZEKO_RETURN_FIELDS>\n"
            "<SPECIFY_ZEKO_CRITERIA><SPECIFY_EAI_CRITERIA>\n"
            "<SPECIFY_ZEKO_I18N_FIELDS>\n<ADD_ZEKO_RETURN_FIELDS>\nmMade = Now\n%>\n");
    }

    // A page that has nothing to find once it is generated.
    static Params ships() {
        return paramsOf(
            "ZEKOReturnFields0=1 - IMO|ZEKOReturnFields1=3 - BERTH|EAIReturnFields0=SHIP.IMO|"
            "ZEKOCriteria1_1=BERTH|ZEKOCriteria1_2===|ZEKOCriteria1_3=HighWater|"
            "ZEKOCriteriaCount=2|EAICriteriaCount=2|ZEKOReturnFieldCount=2|EAIReturnFieldCount=1|"
            "DataProvider=Ships|ZEKOKeyFieldsCount=2|ZEKOKeyFieldnames0=IMO|"
            "ZEKOKeyFieldnames1=BERTH|NrOfExtraIncludes=1|ZEKOCriteriaType1=HighWater|"
            "HighWaterZEKOCriteriaType=1|ExtraIncludes0=Include/Tides.asp|"
            "XSLFilename=xsl/Generic.xsl|NrOfZEKOI18NFieldnames=1|ZEKOI18NFieldnames0=1 - IMO|"
            "LinkedDataProvider=Berths|NrOfSelectedZEKOLinkedFields=1|"
            "ZEKOSelectedLinkedFields0=2 - DEPTH|NrOfLinkedZEKOFields=2|"
            "ZEKOLinkFromFields1=3 - BERTH|ZEKOLinkToFields1=BERTH");
    }
    // The same with some properties changed or added. "included" and "local" are a function that
    // the criterion calls, "script" is the text of the local one.
    static Params with(const std::string& changes) {
        Params params = ships();
        const auto set = [&](const std::string& name, const std::string& value) {
            const auto found = std::find_if(params.begin(), params.end(),
                                            [&](const auto& param) { return param.first == name; });
            if (found != params.end()) params.erase(found);
            params.emplace_back(name, value);
        };
        for (const auto& [name, value] : paramsOf(changes)) {
            if (name == "included" || name == "local") {
                set("ZEKOCriteria1_3", value);
                set("ZEKOCriteriaType1", value);
                set(value + "ZEKOCriteriaType", name == "local" ? "2" : "1");
                set("HighWaterZEKOCriteriaType", "0");
            } else if (name == "script") {
                set("NrOfUserDefinedScripts", "1");
                set("UserDefinedScript1", "Pilot");
                set("PilotUserDefinedScript", value);
            } else {
                set(name, value);
            }
        }
        return params;
    }

    void writePage(const std::string& name, const Params& properties,
                   const std::string& around = "") const {
        write(name, around + page(params(properties)));
    }

    // Writes the text that belongs to a page, unless the page would be left alone.
    void generate(const std::string& name) const {
        Sites sites;
        const GeneratedPage made = generatePage(*this / name, sites, LossGuard::RefuseLosses);
        if (!made.after.empty()) write(name, made.after);
    }

    InspectedPage inspect(const std::string& name) const {
        Sites sites;
        SiteFactsCache facts;
        return inspectPage(*this / name, sites, facts);
    }
};

}  // namespace headerdtc::testing
