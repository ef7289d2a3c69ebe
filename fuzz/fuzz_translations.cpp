// Any bytes are a translators' table or an error; a table that is written is read back as it was.

#include "fuzz/fuzz_tools.h"
#include "host/files/file_error.h"
#include "host/translations/csv.h"
#include "host/translations/translation_file.h"

using namespace headerdtc;

namespace {

void checkRoundTrip(std::string_view text) {
    const std::vector<CsvRecord> records = readCsv("table.csv", text);
    // A heading of one's own, since the first line may say how cells are parted.
    std::string written = csvRecord({"key", "comment"});
    for (const CsvRecord& record : records)
        written += csvRecord(record.cells);
    const std::vector<CsvRecord> again = readCsv("table.csv", written);
    fuzz::require(again.size() == records.size() + 1, "no record comes or goes");
    for (std::size_t i = 0; i < records.size(); ++i)
        fuzz::require(again[i + 1].cells == records[i].cells,
                      "cells are read as they were written");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = fuzz::textOf(data, size);
    try {
        checkRoundTrip(text);
        TranslationFile::parse("table.csv", text);
    } catch (const FileError&) {
    }
    return 0;
}
