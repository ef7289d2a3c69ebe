#include "host/site/registry_export.h"

#include "host/files/file_error.h"
#include "support/prologue.h"

namespace headerdtc::registry_export_test {

const std::string Version5 = "Windows Registry Editor Version 5.00\r\n\r\n";
const std::string Key = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Zarvik\\Zarvik Velmora]\r\n";
const std::string InstallDir = "HKLM\\SOFTWARE\\Zarvik\\Zarvik Velmora\\InstallDir";

std::string utf16(std::u16string_view text, bool bigEndian) {
    std::string bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const char16_t unit : text) {
        const char high = static_cast<char>(unit >> 8U);
        const char low = static_cast<char>(unit & 0xFFU);
        bytes += bigEndian ? high : low;
        bytes += bigEndian ? low : high;
    }
    return bytes;
}

std::u16string wide(const std::string& ascii) {
    return {ascii.begin(), ascii.end()};
}

std::string valueIn(const std::string& bytes, const std::string& path,
                    const CodePage& codePage = CodePage("windows-1252")) {
    const auto values = RegistryExport::parse("v.reg", bytes, codePage);
    const auto* value = values.find(path);
    return value ? *value : "none";
}

std::string problemOf(const std::string& bytes) {
    return errorOf<FileError>(
        [&] { RegistryExport::parse("v.reg", bytes, CodePage("windows-1252")); });
}

TEST(RegistryExport, ReadsTheEditorsEncodings) {
    const auto text = wide(Version5 + Key) + u"\"InstallDir\"=\"C:\\\\Größe\\\\Ω😀\"\r\n";
    EXPECT_EQ(valueIn(utf16(text, false), InstallDir), "C:\\Größe\\Ω😀");
    EXPECT_EQ(valueIn(utf16(text, true), InstallDir), "C:\\Größe\\Ω😀");
    EXPECT_EQ(valueIn("REGEDIT4\n\n" + Key + "\"InstallDir\"=\"C:\\\\Gr\xF6\xDF\x65\"", InstallDir),
              "C:\\Größe");
    for (const char* mark : {"", "\xEF\xBB\xBF"})
        EXPECT_EQ(valueIn(mark + Version5 + Key + "\"InstallDir\"=\"C:\\\\Größe\"", InstallDir),
                  "C:\\Größe");
}

std::string exportOf(const std::string& text) {
    return replaceAll(replaceAll(text, "{5}", Version5), "{key}", Key);
}

TEST(RegistryExport, ReadsTextsAndPassesOverWhatIsNone) {
    for (const auto& [text, value] : casesOf("host/cases/registry_values.txt")) {
        const std::string name = value.substr(0, value.rfind('='));
        const std::string key = "HKLM\\SOFTWARE\\Zarvik\\Zarvik Velmora\\";
        const bool isWhole = name.find('\\') != std::string::npos;
        EXPECT_EQ(name + "=" + valueIn(exportOf(text), isWhole ? name : key + name), value) << text;
    }
    for (const char* value : {"\"C:\\\\\xC1\xE8\"", "hex(2):43,3a,5c,c1,e8,00"}) {
        EXPECT_EQ(valueIn("REGEDIT4\n[HKEY_USERS\\\xE1]\n\"\xE2\"=" + std::string(value),
                          "HKU\\Α\\Β", CodePage("windows-1253")),
                  "C:\\Αθ");
    }
}

TEST(RegistryExport, FaultsNameTheirPlace) {
    for (const auto& [text, problem] : casesOf("host/cases/registry_export.txt")) {
        const auto bytes = exportOf(text);
        EXPECT_THAT(problemOf(bytes), HasSubstr(problem)) << bytes;
    }
    EXPECT_THAT(problemOf(utf16(wide(Version5 + Key), false) + "\""),
                HasSubstr("v.reg:4:1: the export is cut off in the middle"));
}

TEST(RegistryExport, ACutOffExportNeverGivesPartOfAValue) {
    const auto whole = utf16(wide(Version5 + Key + "\"Other\"=hex(2):43,00,\\\r\n  00,00\r\n" +
                                  "\"InstallDir\"=\"C:\\\\Sites\\\\Main\"\r\n"),
                             false);
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const auto part = whole.substr(0, size);
        if (!problemOf(part).empty()) continue;
        const auto value = valueIn(part, InstallDir);
        EXPECT_TRUE(value == "none" || value == "C:\\Sites\\Main") << size << value;
    }
}

TEST(SiteRegistry, SaysWhyAValueCannotBeRead) {
    TempFolder folder;
    SiteRegistry registry(folder / "velmora.reg", CodePage("windows-1252"));
    const auto read = [&] { registry.RegRead(InstallDir); };
    EXPECT_THAT(
        errorOf<RuntimeError>(read),
        StartsWith("File not found: " + (folder / "velmora.reg").string() + ": cannot be read"));
    folder.write("velmora.reg", Version5 + Key + "\"InstallDir\"=\"C:");
    EXPECT_THAT(errorOf<RuntimeError>(read),
                HasSubstr("velmora.reg:4:14: this string is not closed"));
    folder.write("velmora.reg", Version5 + Key);
    EXPECT_EQ(errorOf<RuntimeError>(read),
              "Unable to open registry key \"" + InstallDir + "\" for reading");
    folder.write("velmora.reg", Version5 + Key + "\"InstallDir\"=\"C:\\\\Sites\"\r\n");
    EXPECT_EQ(registry.RegRead(InstallDir), "C:\\Sites");
}

}  // namespace headerdtc::registry_export_test
