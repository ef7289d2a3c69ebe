#include "host/odbc/odbc_handles.h"

#include "host/odbc/secrets.h"
#include "platform/text.h"
#include "platform/utf8.h"

#include <algorithm>
#include <array>
#include <optional>
#include <sqlext.h>
#include <sqlucode.h>
#include <string>
#include <string_view>

namespace headerdtc {
namespace {

struct Diagnostic {
    std::string text;
    SQLINTEGER number = 0;
};

// Nothing behind the last record. Drivers quote whole values; what is longer than the buffer is
// cut off.
std::optional<Diagnostic> readDiagnostic(SQLSMALLINT kind, SQLHANDLE handle, OdbcText form,
                                         SQLSMALLINT record) {
    constexpr SQLSMALLINT Size = 4096;
    Diagnostic diagnostic;
    SQLSMALLINT length = 0;
    if (form == OdbcText::Utf8) {
        std::array<SQLCHAR, 6> state{};
        std::array<SQLCHAR, Size> text{};
        if (!SQL_SUCCEEDED(SQLGetDiagRec(kind, handle, record, state.data(), &diagnostic.number,
                                         text.data(), Size, &length)))
            return std::nullopt;
        diagnostic.text.assign(text.begin(), std::find(text.begin(), text.end(), 0));
    } else {
        std::array<SQLWCHAR, 6> state{};
        std::array<SQLWCHAR, Size> text{};
        if (!SQL_SUCCEEDED(SQLGetDiagRecW(kind, handle, record, state.data(), &diagnostic.number,
                                          text.data(), Size, &length)))
            return std::nullopt;
        diagnostic.text = utf8::fromUtf16Replacing(
            std::u16string(text.begin(), std::find(text.begin(), text.end(), 0)));
    }
    return diagnostic;
}

// Drivers end texts with a line end or break them into lines; a report is one line.
std::string onOneLine(std::string_view text) {
    std::string joined;
    const std::string lines = replaceAll(replaceAll(text, "\r", "\n"), "\t", " ");
    for (std::string_view line : splitText(lines, "\n")) {
        line = trimBlanks(line);
        if (line.empty()) continue;
        if (!joined.empty()) joined += ' ';
        joined += line;
    }
    return joined;
}

}  // namespace

RuntimeError odbcFailure(SQLSMALLINT kind, SQLHANDLE handle, OdbcText form) {
    std::string texts;
    SQLINTEGER number = 0;
    for (SQLSMALLINT record = 1; record <= 10; ++record) {
        const auto diagnostic = readDiagnostic(kind, handle, form, record);
        if (!diagnostic) break;
        if (record == 1) number = diagnostic->number;
        const std::string text = maskSecrets(onOneLine(diagnostic->text));
        if (texts.find(text) != std::string::npos) continue;
        if (!texts.empty()) texts += "; ";
        texts += text;
    }
    if (texts.empty()) texts = "The database driver failed without a reason";
    return {number, texts};
}

}  // namespace headerdtc
