#include "qt/editor/base/page_content.h"

#include "qt/editor/base/step_name.h"
#include "qt/editor/page/page_changes.h"
#include "qt/editor/page/undo_history.h"
#include "support/prologue.h"
#include "support/temp_site.h"

namespace headerdtc::qt::page_content_test {

using Site = TempSite;

const CodePage& windows1252() {
    static const CodePage page("windows-1252");
    return page;
}

PageContentPtr content(std::string bytes) {
    return std::make_shared<const PageContent>("page.asp", std::move(bytes), windows1252());
}

StoredProperties with(StoredProperties properties, const std::string& name,
                      const std::string& value) {
    for (auto& property : properties) {
        if (property.first == name) property.second = value;
    }
    return properties;
}

TEST(PageContent, PropertiesTakenBackAreWrittenAsTheFileHasThem) {
    // Written by hand, in no form that the program would choose.
    std::string markup = Site::control(Site::ordersParams(), "text\r\n");
    const std::string name = "<PARAM NAME=\"DataProvider\"";
    markup.replace(markup.find(name), name.size(), "<param   name='DataProvider'");
    const auto saved = content("caf\xE9 <b>\r\n" + markup + "\n<i>\r\x81 end");
    const auto properties = with(saved->controls()[0].properties, "DataProvider", "Stock");
    const auto changed = content(saved->withProperties(0, properties, *saved));
    EXPECT_EQ(properties, changed->controls()[0].properties);
    EXPECT_EQ("text\r\n", changed->runtimeTextOf(0));
    EXPECT_EQ(saved->bytes(), changed->withProperties(0, saved->controls()[0].properties, *saved));
}

// Each side is a list of exchanges in the base; what comes of both, or what stands against it.
TEST(PageContent, ChangesOfTwoAreToldInWordsAndMergedWhereTheyDoNotTouch) {
    using Exchanges = std::vector<std::pair<std::string, std::string>>;
    const std::string two = Site::control(Site::ordersParams(), "old\r\n", "HeaderDTC2");
    const std::string base = "caf\xE9\r\n<title>Old</title>\n" +
                             Site::control(Site::ordersParams(), "old\r\n") + "\n<p>\r" + two +
                             "\n</html>";
    const auto with = [&](const Exchanges& exchanges) {
        std::string page = base;
        for (const auto& [from, to] : exchanges)
            page.replace(page.find(from), from.size(), to);
        return page;
    };
    const std::pair<std::string, std::string> extra{"Generic", "Special"}, title{">Old<", ">New<"},
        text{"old\r\n", "new\r\n"}, gone{two, ""}, paragraph{"<p>", "<p>more"},
        third{"</html>", Site::control("", "", "HeaderDTC3")}, other{"</html>", "<b>"},
        provider{"\"Orders\"", "\"Stock\""},
        configured{two, Site::control(Site::ordersParams("Stock"), "old\r\n", "HeaderDTC2")};
    const struct {
        Exchanges mine, theirs;
        const char* words;  // for mine
        const char* obstacle;
    } cases[] = {
        {{extra}, {title, text, paragraph}, "stylesheet of HeaderDTC1", ""},
        {{title, gone}, {extra}, "control HeaderDTC2 is taken out\ntitle: + New, \u2212 Old", ""},
        {{extra, paragraph}, {paragraph, third}, "text around the controls", ""},
        {{third}, {text}, "new control HeaderDTC3", ""},
        {{text}, {text, extra}, "generated text", ""},
        {{extra}, {provider}, "stylesheet of HeaderDTC1", "both have changed HeaderDTC1"},
        {{gone}, {configured}, "HeaderDTC2 is taken out", "both have changed HeaderDTC2"},
        {{third}, {other}, "new control HeaderDTC3", "the text at \u201C</html>\u201D"},
        {{title}, {{"caf", "Caf"}}, "title", "the text at \u201Ccaf\u00E9\u201D"},
    };
    for (const auto& [mine, theirs, words, obstacle] : cases) {
        SCOPED_TRACE(words);
        const auto from = content(base), ours = content(with(mine)), others = content(with(theirs));
        const QString told = changesInWords(*from, *ours).join('\n');
        EXPECT_TRUE(told.contains(QString::fromUtf8(words))) << told.toStdString();
        const MergedPage merged = mergePages(*from, *ours, *others);
        EXPECT_TRUE(merged.obstacle.contains(QString::fromUtf8(obstacle)))
            << merged.obstacle.toStdString();
        EXPECT_EQ(*obstacle == '\0', merged.bytes.has_value());
        if (!merged.bytes) continue;
        Exchanges both = theirs;
        for (const auto& exchange : mine) {
            if (std::find(theirs.begin(), theirs.end(), exchange) == theirs.end())
                both.push_back(exchange);
        }
        EXPECT_EQ(with(both), *merged.bytes);
    }
}

TEST(PageContent, AControlIsTakenOutWithItsLineOrFromWithinALine) {
    const std::string control = Site::control(Site::ordersParams());
    EXPECT_EQ("a\r\nb\r\n", content("a\r\n" + control + "\r\nb\r\n")->withoutControl(0));
    EXPECT_EQ("a<i></i>\n", content("a<i>" + control + "</i>\n")->withoutControl(0));
    EXPECT_EQ("", content(control)->withoutControl(0));
}

TEST(PageContent, APageThatCannotBeTakenApartIsTextAllTheSame) {
    const std::string broken =
        "one\n<!--METADATA TYPE=\"DesignerControl\" startspan\n<OBJECT ID=x "
        "CLASSID=\"clsid:2F9DAB28-6BB4-469F-A568-9CA7A4217B69\">\n";
    const auto page = content(broken);
    EXPECT_EQ(broken, page->bytes());
    EXPECT_TRUE(page->controls().empty());
    ASSERT_TRUE(page->problem());
    EXPECT_EQ(3, page->problem()->line());
    EXPECT_THROW(page->withNewControl(1), FileError);
    EXPECT_FALSE(content(page->withText({0, broken.size()}, "mended"))->problem());
}

TEST(PageContent, TellsThePagesOwnLineEnd) {
    EXPECT_EQ("\n", content("a\nb\nc\r\n")->lineEnd());
    EXPECT_EQ("\r", content("a\rb\rc\n")->lineEnd());
    EXPECT_EQ("\r\n", content("no line")->lineEnd());
}

TEST(StepName, SaysWhatTheAuthorDidAndNotWhatFollowedFromIt) {
    const struct {
        StoredProperties before, after;
        const char* name;
    } cases[] = {
        {{{"DataProvider", "Orders"}, {"ZEKOAvailableFields0", "1 - A"}},
         {{"DataProvider", "Stock"}, {"ZEKOAvailableFields0", "1 - B"}},
         "choose Stock as data provider"},
        {{{"ZEKOCriteriaCount", "2"}},
         {{"ZEKOCriteriaCount", "2"}, {"ZEKOCriteria1_1", "ORDNO"}, {"ZEKOCriteria1_2", "=="}},
         "replace an empty row by ORDNO == in ZEKO criteria"},
        {{{"EAIReturnFields0", "A.B"}, {"NrOfEAII18NFieldnames", "1"}},
         {{"NrOfEAII18NFieldnames", "0"}},
         "remove A.B from EAI return fields"},
        {{},
         {{"ZEKOReturnFields0", " 1 - A"}, {"ZEKOReturnFields1", " 2 - B"}},
         "add 2 to ZEKO return fields"},
        {{}, {{"NrOfLinkedZEKOFields", "3"}}, "add an empty row to ZEKO links"},
        // An author's name for a script may be like a property's.
        {{}, {{"GetDataProviderUserDefinedScript", "x"}}, "add GetDataProvider to scripts"},
    };
    for (const auto& [before, after, name] : cases)
        EXPECT_EQ(name, describeChange(before, after).toStdString());
}

// What a history has after some strokes: "+a" is a step to the page a, "*a" one of the kind that
// joins,
// "|" a pause, "=a" a saving that makes a of the page; "<" takes back and ">" does again.
std::string after(const std::string& strokes) {
    UndoHistory history{content("start")};
    std::istringstream stream(strokes);
    for (std::string stroke; stream >> stroke;) {
        const std::string bytes = stroke.substr(1);
        if (stroke[0] == '<') history.undo();
        if (stroke[0] == '>') history.redo();
        if (stroke[0] == '|') history.seal();
        if (stroke[0] == '=') history.replaceCurrent(content(bytes));
        if (stroke[0] == '+' || stroke[0] == '*')
            history.push(content(bytes),
                         {.name = QString::fromStdString(bytes),
                          .kind = QLatin1String(stroke[0] == '*' ? "letters" : "")});
    }
    const auto name = [](const Step* step) { return step ? step->name.toStdString() : "none"; };
    return history.current()->bytes() + ", undo " + name(history.undoStep()) + ", redo " +
           name(history.redoStep());
}

TEST(UndoHistory, GoesBackAndForthAndForgetsWhatWasUndoneWithANewStep) {
    EXPECT_EQ(after("+one +two < <"), "start, undo none, redo one");
    EXPECT_EQ(after("+one +two < < >"), "one, undo one, redo two");
    EXPECT_EQ(after("+one +two < < > +three"), "three, undo three, redo none");
    EXPECT_EQ(after("+one +two < < > +three <"), "one, undo one, redo three");
}

TEST(UndoHistory, JoinsStepsOfOneKindUntilAPause) {
    EXPECT_EQ(after("*a *ab | *abc <"), "ab, undo ab, redo abc");
    EXPECT_EQ(after("*a *ab | *abc < <"), "start, undo none, redo ab");
}

TEST(UndoHistory, ASavedPageTakesThePlaceOfTheOneThatWasSaved) {
    EXPECT_EQ(after("+one +two < =generated > <"), "generated, undo one, redo two");
    EXPECT_EQ(after("+one +two < =generated <"), "start, undo none, redo one");
}

TEST(UndoHistory, DropsTheOldestStatesOfALargePage) {
    const std::string large(UndoHistory::MostBytes / 4, 'x');
    UndoHistory history{content("start")};
    for (int i = 0; i < 8; ++i)
        history.push(content(large + std::to_string(i)), {});
    int steps = 0;
    for (; history.undoStep(); ++steps)
        history.undo();
    EXPECT_GE(steps, 2);
    EXPECT_LE(steps, 4);
}

}  // namespace headerdtc::qt::page_content_test
