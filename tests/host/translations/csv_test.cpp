#include "host/translations/csv.h"

#include "host/files/file_error.h"
#include "platform/utf8.h"
#include "support/prologue.h"

namespace headerdtc::csv_test {

std::vector<std::vector<std::string>> cellsOf(const std::string& text) {
    std::vector<std::vector<std::string>> cells;
    for (const CsvRecord& record : readCsv("file.csv", text))
        cells.push_back(record.cells);
    return cells;
}

TEST(Csv, WhatIsWrittenComesBack) {
    std::mt19937 random(7);
    const std::string letters = "a\",;\t\r\n b";
    for (int round = 0; round < 500; ++round) {
        std::vector<std::vector<std::string>> table;
        std::string text(round % 2 ? utf8::ByteOrderMark : "");
        for (unsigned i = 0; i <= random() % 5; ++i) {
            // The first cell says something: a record of one empty cell is a line with nothing in
            // it.
            std::vector<std::string> cells{"key"};
            for (unsigned j = 0; j < random() % 4; ++j) {
                std::string& cell = cells.emplace_back();
                for (unsigned k = 0; k < random() % 8; ++k)
                    cell += letters[random() % letters.size()];
            }
            text += csvRecord(cells);
            table.push_back(std::move(cells));
        }
        ASSERT_EQ(cellsOf(text), table) << text;
    }
}

TEST(Csv, TakesWhatSpreadsheetsWrite) {
    EXPECT_THAT(cellsOf("key;1031\na;\"x;\"\"y\"\"\"\n\n;;\n"),
                ElementsAre(ElementsAre("key", "1031"), ElementsAre("a", "x;\"y\""),
                            ElementsAre("", "", "")));
    EXPECT_THAT(cellsOf("key\t1031\r\na,b\tc"),
                ElementsAre(ElementsAre("key", "1031"), ElementsAre("a,b", "c")));
    EXPECT_THAT(cellsOf("\"k,;\",b"), ElementsAre(ElementsAre("k,;", "b")));
    EXPECT_THAT(cellsOf("sep=;\r\na,b;c\r\n"), ElementsAre(ElementsAre("a,b", "c")));
    EXPECT_THAT(cellsOf("sep=ab;c\n"), ElementsAre(ElementsAre("sep=ab", "c")));
    EXPECT_THAT(cellsOf("sep=\na"), ElementsAre(ElementsAre("sep="), ElementsAre("a")));
    EXPECT_THAT(cellsOf(""), IsEmpty());
    EXPECT_EQ(readCsv("f", "a,\"x\ny\"\r\n\r\nb").at(1).line, 4);
}

TEST(Csv, SaysTheLineOfABrokenQuotation) {
    const auto problem = [](const char* text) {
        return errorOf<FileError>([&] { readCsv("file.csv", text); });
    };
    EXPECT_THAT(problem("a,b\n\"c,d\ne"), HasSubstr("file.csv:2: a quotation mark is not closed"));
    EXPECT_THAT(problem("a,b\n\"c\"d,e"), HasSubstr("file.csv:2: a cell goes on"));
}

}  // namespace headerdtc::csv_test
