#include "host/generation/site_generation.h"
#include "host/page/page_document.h"
#include "support/prologue.h"
#include "support/temp_site.h"

#include <iterator>
#include <sys/resource.h>

namespace headerdtc::untrusted_page_test {

using Verdict = GeneratedPage::Verdict;

// Pages that somebody wrote who wants more than a data header.
class UntrustedPage : public Test {
  protected:
    GeneratedPage generate(const std::string& page) {
        site.write("page.asp", page);
        return generatePage(site / "page.asp", sites, LossGuard::SaveAnyway);
    }
    static std::string repeated(int times, const std::string& text) {
        std::string all;
        for (int i = 0; i < times; ++i)
            all += text;
        return all;
    }
    static std::string referred(std::string_view text) {
        std::string all;
        for (const char c : text)
            all += "&#" + std::to_string(static_cast<unsigned char>(c)) + ';';
        return all;
    }

    TempSite site;
    Sites sites;
};

TEST_F(UntrustedPage, NoNameOrValueBreaksOutOfTheMarkupThatIsWritten) {
    const std::string break_ =
        "\">--><%=Server.CreateObject(\"x\")%>\r\n<!--METADATA TYPE=\"DesignerControl\" "
        "endspan--></OBJECT>--&gt;-->--!>\t'" +
        std::string(1, '\x01');
    const GeneratedPage made = generate(
        "before" +
        TempSite::control(TempSite::param("XSLFilename", referred(break_)) +
                              TempSite::param("NrOfExtraIncludes", "1") +
                              TempSite::param("ExtraIncludes0", referred(break_)) +
                              TempSite::param("NrOfUserDefinedScripts", "1") +
                              TempSite::param("UserDefinedScript1", referred(break_)) +
                              TempSite::param(referred(break_ + "UserDefinedScript"), "a\x81\xFF"),
                          "", referred("Id" + break_)) +
        "after");
    ASSERT_EQ(made.verdict, Verdict::Stale);
    const PageMarkup again("page.asp", made.after, CodePage("windows-1252"));
    ASSERT_EQ(again.controls().size(), 1U);
    const ControlSpan& control = again.controls().front();
    EXPECT_EQ(control.id, "Id" + break_);
    for (const char* name : {"XSLFilename", "ExtraIncludes0", "UserDefinedScript1"})
        EXPECT_THAT(control.properties,
                    Contains(std::pair<std::string, std::string>(name, break_)));
    // One comment, and no server script in it.
    const std::string_view markup = again.textOf(control.markup);
    EXPECT_EQ(markup.find("-->"), markup.size() - std::string_view("-->\r\n").size());
    EXPECT_EQ(markup.find("<%"), std::string_view::npos);
    EXPECT_TRUE(made.after.starts_with("before<!--METADATA"));
    EXPECT_TRUE(made.after.ends_with("endspan-->after"));
}

TEST_F(UntrustedPage, TheLargestCountsCostLittle) {
    std::istringstream words(
        "ZEKOReturnFieldCount EAIReturnFieldCount ZEKOCriteriaCount EAICriteriaCount "
        "ZEKOAvailableFieldsCount EAIAvailableFieldsCount ZEKOKeyFieldsCount "
        "EAIKeyFieldsCount NrOfUserDefinedScripts NrOfExtraIncludes "
        "NrOfZEKOI18NFieldnames NrOfEAII18NFieldnames NrOfZEKOI18NFieldValues "
        "NrOfEAII18NFieldValues NrOfZEKOAvailableFieldsLinked "
        "NrOfEAIAvailableFieldsLinked NrOfSelectedZEKOLinkedFields "
        "NrOfSelectedEAILinkedFields NrOfZEKOToLinkKeyFields NrOfEAIToLinkKeyFields "
        "NrOfLinkedZEKOFields NrOfLinkedEAIFields");
    const std::vector<std::string> counts(std::istream_iterator<std::string>(words), {});
    std::string all;
    for (const auto& count : counts)
        all += TempSite::param(count, "32767");
    for (const auto& count : counts)
        generate(TempSite::page(TempSite::param(count, "32767")));
    EXPECT_NE(generate(TempSite::page(all)).verdict, Verdict::NotReadable);
    for (const char* value : {"32768", "-32768", "99999999999999999999", "1e300", "0x7FFF"})
        generate(TempSite::page(TempSite::param("ZEKOReturnFieldCount", value)));
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    EXPECT_LT(used.ru_maxrss, 2L * 1024 * 1024) << "KiB";
}

// The stylesheet brings in the scripts a thousand times, and these the return fields.
TEST_F(UntrustedPage, ValuesThatMultiplyAreAFailureOfThatPageAlone) {
    site.writeTemplate("<XSL_FILENAME>");
    const std::string page = TempSite::page(
        TempSite::params("NrOfUserDefinedScripts=1|UserDefinedScript1=S|XSLFilename=" +
                         repeated(5000, "&lt;USER_DEFINED_SCRIPTS&gt;") +
                         "|SUserDefinedScript=" + repeated(5000, "&lt;ENABLE_EXTRA_FILTERS&gt;")));
    site.write("page.asp", page);
    const GeneratedPage made = generatePage(site / "page.asp", sites, LossGuard::RefuseLosses);
    EXPECT_EQ(made.verdict, Verdict::Failing);
    EXPECT_THAT(made.messages.front(), HasSubstr("Out of string space"));
}

}  // namespace headerdtc::untrusted_page_test
