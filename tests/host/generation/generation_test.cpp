#include "host/generation/site_generation.h"
#include "host/generation/site_pages.h"
#include "host/page/page_document.h"
#include "support/prologue.h"
#include "support/temp_site.h"

#include <sys/resource.h>

namespace headerdtc::generation_test {

using Verdict = GeneratedPage::Verdict;

class Generation : public Test {
  protected:
    GeneratedPage generate(const std::string& page, LossGuard guard = LossGuard::RefuseLosses) {
        return generatePage(site / page, sites, guard);
    }

    // Runs over everything in the folder; the results by page, in the order told.
    std::vector<std::pair<std::string, SiteGeneration::Done>> run(SiteGeneration::Options options) {
        const SitePages pages = findSitePages({site.path().string()});
        std::vector<std::pair<std::string, SiteGeneration::Done>> told;
        SiteGeneration(sites, options).run(pages.pages, [&](const SiteGeneration::Done& done) {
            const auto page = pages.pages[done.index].lexically_relative(site.path());
            if (*page.begin() != "c") told.emplace_back(page.string(), done);
        });
        return told;
    }

    TempSite site;
    Sites sites;
};

TEST_F(Generation, WritesTheTextAndKeepsEveryByteAroundTheControl) {
    const std::string foreign =
        "<!--METADATA TYPE=\"DesignerControl\" startspan\n<OBJECT ID=\"x\" "
        "CLASSID=\"clsid:00000000-0000-0000-0000-000000000000\"><PARAM NAME=a></OBJECT>-->\n"
        "old<!--METADATA TYPE=\"DesignerControl\" endspan-->";
    const std::string around = std::string("\x81\x00\xff<!--METADATA odd\n", 20) + foreign;
    site.write("page.asp", around + TempSite::page(TempSite::ordersParams(), "old\r\n") + around);
    const GeneratedPage made = generate("page.asp");
    EXPECT_EQ(made.verdict, Verdict::Stale);
    EXPECT_THAT(made.messages, IsEmpty());
    const std::string expected =
        around + TempSite::page(TempSite::ordersParams(), TempSite::ordersText()) + around;
    EXPECT_EQ(made.after, expected);

    run({});
    EXPECT_EQ(site.read("page.asp"), expected);
    EXPECT_EQ(generate("page.asp").verdict, Verdict::UpToDate);
}

TEST_F(Generation, LeavesAPageAloneThatWouldLoseSomething) {
    struct Case {
        std::string params;
        const char* reason;
        bool canBeForced = true;
    };
    const std::map<std::string, Case> pages = {
        {"provider.asp", {"DataProvider=Gone", "provider \"Gone\" is not in the catalogue"}},
        {"kind.asp",
         {"ZEKOCriteria1_3=Mine|ZEKOCriteriaCount=2|ZEKOCriteriaType2=Mine|MineZEKOCriteriaType=2",
          "the kind 'Local script' of the ZEKO value \"Mine\" cannot be kept"}},
        {"item.asp", {"EAIReturnFields0=A.B", "\"A.B\" of the EAI return fields would be lost"}},
        {"count.asp", {"ZEKOReturnFieldCount=many", "loading reported an error", false}},
        {"entry.asp",
         {"ZEKOReturnFields0=ORDNO|ZEKOReturnFieldCount=1", "the generation reported an error",
          false}},
    };
    for (const auto& [page, bad] : pages) {
        site.write(page, TempSite::page(TempSite::params(bad.params)));
        const GeneratedPage made = generate(page);
        EXPECT_EQ(made.verdict, bad.canBeForced ? Verdict::Losing : Verdict::Failing) << page;
        EXPECT_THAT(made.messages.back(), HasSubstr(bad.reason));
        EXPECT_EQ(made.messages.back().find("--force") != std::string::npos, bad.canBeForced);
    }
    run({});
    for (const auto& [page, bad] : pages)
        EXPECT_EQ(site.read(page), TempSite::page(TempSite::params(bad.params)));
    // The text is made anew, the properties stay as they are stored.
    for (const auto& [page, bad] : pages) {
        const GeneratedPage forced = generate(page, LossGuard::SaveAnyway);
        EXPECT_EQ(forced.verdict, bad.canBeForced ? Verdict::Stale : Verdict::Failing) << page;
        EXPECT_THAT(forced.after, HasSubstr(bad.canBeForced ? TempSite::params(bad.params) : ""));
    }
}

TEST_F(Generation, MissingPiecesOfTheSiteFailThePageAndSayWhichFile) {
    site.write("page.asp", TempSite::page(TempSite::ordersParams()));
    for (const char* piece : {"velmora.reg", "catalogue.json"}) {
        const std::string bytes = site.read(piece);
        std::filesystem::remove(site / piece);
        const GeneratedPage made = generate("page.asp");
        EXPECT_EQ(made.verdict, Verdict::Failing) << piece;
        site.write(piece, bytes);
    }
    site.write("catalogue.json", "{\"providers\": [\n  {\"name\": 5}]}");
    EXPECT_THAT(generate("page.asp").messages.front(), HasSubstr("catalogue.json:2:"));

    site.write("headerdtc.toml", "code_page = 5\n");
    const GeneratedPage made = generate("page.asp");
    EXPECT_EQ(made.verdict, Verdict::NotConfigured);
    EXPECT_THAT(made.messages, ElementsAre(HasSubstr("headerdtc.toml:1:13:")));
}

TEST_F(Generation, SeesAChangedTemplateAndCatalogueWithTheNextPage) {
    site.write("page.asp", TempSite::page(TempSite::ordersParams()));
    EXPECT_THAT(generate("page.asp").after, HasSubstr("<% ' Orders"));
    site.writeTemplate("<% ' new <DATAPROVIDER>\n");
    EXPECT_THAT(generate("page.asp").after, HasSubstr("<% ' new Orders"));
    site.write("catalogue.json", R"({"providers": [{"name": "Other"}]})");
    EXPECT_EQ(generate("page.asp").verdict, Verdict::Losing);
}

TEST_F(Generation, SeveralControlsOfAPageAreEachDoneAndTheWayToTheRootIsCounted) {
    site.writeTemplate("<PATH_TO_ROOT>|<DATAPROVIDER>");
    site.write("a/b/page.asp",
               TempSite::control(TempSite::ordersParams()) +
                   TempSite::control(TempSite::param("DataProvider", "Stock"), "", "Second"));
    const GeneratedPage made = generate("a/b/page.asp");
    EXPECT_THAT(made.after, HasSubstr("-->\r\n../../|Orders\r\n<!--"));
    EXPECT_THAT(made.after, HasSubstr("-->\r\n../../|Stock\r\n<!--"));
    // Two of one ID stay two; who asks for the ID means the first.
    const std::string twins = replaceAll(made.after, "Second", "HeaderDTC1");
    site.write("a/b/page.asp", twins);
    EXPECT_EQ(generate("a/b/page.asp").verdict, Verdict::UpToDate);
    const PageDocument document(site / "a/b/page.asp", CodePage("windows-1252"));
    EXPECT_EQ(document.controlIndex("HeaderDTC1"), 0U);
    EXPECT_EQ(document.markup().freeId(), "HeaderDTC2");
    site.write("root.asp", TempSite::page(TempSite::ordersParams()));
    EXPECT_THAT(generate("root.asp").after, HasSubstr("-->\r\n|Orders\r\n<!--"));
    // The root by its own name, the page through a link.
    const TempFolder elsewhere;
    std::filesystem::create_directory_symlink(site.path(), elsewhere / "link");
    site.write("headerdtc.toml", site.read("headerdtc.toml") + "[project]\nroot = \"" +
                                     site.path().string() + "\"\n");
    EXPECT_THAT(generate(elsewhere / "link/root.asp").after, HasSubstr("-->\r\n|Orders\r\n"));
}

TEST_F(Generation, ManyPagesAreToldOfInOrderAndAFailureStopsNoOther) {
    constexpr int Pages = 400;
    const auto name = [](int i) { return "p" + std::to_string(1000 + i) + ".asp"; };
    for (int i = 0; i < Pages; ++i)
        site.write(name(i), TempSite::page(i % 100 == 50 ? TempSite::param("DataProvider", "Gone")
                                                         : TempSite::ordersParams()));
    const auto told = run({.jobs = 4});
    ASSERT_EQ(told.size(), static_cast<std::size_t>(Pages));
    for (int i = 0; i < Pages; ++i) {
        const auto& [page, done] = told[static_cast<std::size_t>(i)];
        EXPECT_EQ(page, name(i));
        EXPECT_EQ(done.written, i % 100 != 50);
    }
    for (const auto& [page, done] : run({.mode = SiteGeneration::Mode::Check, .jobs = 4}))
        EXPECT_NE(done.page.verdict, Verdict::Stale);
}

TEST_F(Generation, FindsPagesOfBothKindsOnceAndFollowsNoFolderLoop) {
    for (const char* page :
         {"b.asp", "a/x.INC", "a/y.txt", ".hidden/z.asp", "c/k.Asp", "c/..a.asp", "c/.b.asp"})
        site.write(page, "");
    std::filesystem::create_directory_symlink(site.path(), site / "a/loop");
    // A page's own name goes before a link to it; a link to a page elsewhere is all there is.
    std::filesystem::create_symlink(site / "b.asp", site / "a/link.asp");
    std::filesystem::create_symlink(site / ".hidden/z.asp", site / "a/out.asp");
    const auto found = findSitePages(
        {(site / "c/k.Asp").string(), "", site.path().string(), (site / "missing.asp").string()});
    ASSERT_EQ(found.problems.size(), 1U);
    EXPECT_EQ(found.problems[0].text(), "\"\": an empty path names no page");
    std::vector<std::string> names;
    for (const auto& page : found.pages)
        names.push_back(page.lexically_relative(site.path()).string());
    EXPECT_THAT(names, ElementsAre("c/k.Asp", "a/out.asp", "a/x.INC", "b.asp", "c/..a.asp",
                                   "c/Suite/Orvane/include/DTC_TEMPLATE.ASP", "missing.asp"));
}

// ---- untrusted pages ----------------------------------------------------------------------------

// Pages that somebody wrote who wants more than a data header.
class UntrustedPage : public Generation {
  protected:
    GeneratedPage generated(const std::string& page) {
        site.write("page.asp", page);
        return generate("page.asp", LossGuard::SaveAnyway);
    }
    static std::string referred(std::string_view text) {
        std::string all;
        for (const char c : text)
            all += "&#" + std::to_string(static_cast<unsigned char>(c)) + ';';
        return all;
    }
};

TEST_F(UntrustedPage, NoNameOrValueBreaksOutOfTheMarkupThatIsWritten) {
    const std::string break_ =
        "\">--><%=Server.CreateObject(\"x\")%>\r\n<!--METADATA TYPE=\"DesignerControl\" "
        "endspan--></OBJECT>--&gt;-->--!>\t'" +
        std::string(1, '\x01');
    const GeneratedPage made = generated(
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
    const PageDocument full(HEADERDTC_SOURCE_DIR "/demo/customers/regions/overview.asp",
                            CodePage("windows-1252"));
    std::vector<std::string> counts;
    for (const auto& [name, value] : full.markup().controls().at(0).properties) {
        if (name.ends_with("Count") || name.starts_with("NrOf")) counts.push_back(name);
    }
    EXPECT_GT(counts.size(), 20U);
    std::string all;
    for (const auto& count : counts)
        all += TempSite::param(count, "32767");
    for (const auto& count : counts)
        generated(TempSite::page(TempSite::param(count, "32767")));
    EXPECT_NE(generated(TempSite::page(all)).verdict, Verdict::NotReadable);
    for (const char* value : {"32768", "-32768", "99999999999999999999", "1e300", "0x7FFF"})
        generated(TempSite::page(TempSite::param("ZEKOReturnFieldCount", value)));
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    EXPECT_LT(used.ru_maxrss, 2L * 1024 * 1024) << "KiB";
}

}  // namespace headerdtc::generation_test
