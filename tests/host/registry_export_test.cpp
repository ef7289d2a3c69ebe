#include "host/site/registry_export.h"

#include "host/failures.h"
#include "host/files/file_error.h"
#include "platform/runtime_error.h"

#include <gmock/gmock.h>

namespace headerdtc {
namespace {

using namespace headerdtc::testing;
using namespace ::testing;

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
    return value ? *value : "(none)";
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

TEST(RegistryExport, NamesCompareWithoutRegardToCase) {
    const auto bytes =
        Version5 + Key + "\"InstallDir\"=\"x\"\r\n@=\"default\"\r\n\"Größe\"=\"y\"\r\n";
    EXPECT_EQ(valueIn(bytes, "hkey_local_machine\\software\\ZARVIK\\zarvik velmora\\INSTALLDIR"),
              "x");
    EXPECT_EQ(valueIn(bytes, "hklm\\SOFTWARE\\Zarvik\\Zarvik Velmora\\"), "default");
    EXPECT_EQ(valueIn(bytes, "HKLM\\SOFTWARE\\Zarvik\\Zarvik Velmora\\GRÖßE"), "y");
    EXPECT_EQ(valueIn(bytes, "HKCU\\SOFTWARE\\Zarvik\\Zarvik Velmora\\InstallDir"), "(none)");
    EXPECT_EQ(valueIn(bytes, "HKLM\\SOFTWARE\\Zarvik\\Zarvik Velmora"), "(none)");
    EXPECT_EQ(valueIn(bytes, "InstallDir"), "(none)");
}

TEST(RegistryExport, ReadsStringsAndPassesOverOtherValues) {
    const auto bytes = Version5 + "; a comment\r\n" + Key +
                       "\"Quoted\"=\"a \\\"b\\\" [c] ; \\\\\"\r\n"
                       "\"Lines\"=\"one\r\ntwo\"\r\n"
                       "\"With = sign\"  =  \"x\" ; a comment\r\n"
                       "\"Number\"=dword:0000000f\r\n"
                       "\"Binary\"=hex:00,ff,\\\r\n  5c,22\r\n"
                       "\"Empty\"=hex:\r\n"
                       "\"Big\"=hex(b):00,00,00,00,00,00,00,00\r\n"
                       "\"Expanded\"=hex(2):43,00,3a,00,5c,00,25,00,\\\r\n"
                       "  55,00,a9,03,\\\r\n  00,00,58,00\r\n"
                       "\"Text\"=hex(1):41,00\r\n";
    const std::string key = "HKLM\\SOFTWARE\\Zarvik\\Zarvik Velmora\\";
    const std::pair<std::string, std::string> cases[] = {
        {"Quoted", "a \"b\" [c] ; \\"},
        {"Lines", "one\r\ntwo"},
        {"With = sign", "x"},
        {"Number", "(none)"},
        {"Binary", "(none)"},
        {"Empty", "(none)"},
        {"Big", "(none)"},
        {"Expanded", "C:\\%UΩ"},
        {"Text", "A"},
    };
    for (const auto& [name, value] : cases)
        EXPECT_EQ(valueIn(bytes, key + name), value) << name;
    EXPECT_EQ(valueIn("REGEDIT4\r\n" + Key + "\"InstallDir\"=hex(2):43,3a,e9,00\r\n", InstallDir),
              "C:é");
    for (const char* value : {"\"C:\\\\\xC1\xE8\"", "hex(2):43,3a,5c,c1,e8,00"}) {
        EXPECT_EQ(valueIn("REGEDIT4\n[HKEY_USERS\\\xE1]\n\"\xE2\"=" + std::string(value),
                          "HKU\\Α\\Β", CodePage("windows-1253")),
                  "C:\\Αθ");
    }
}

TEST(RegistryExport, LaterLinesCountAndDeletionsToo) {
    const auto set = Key + "\"InstallDir\"=\"1\"\r\n";
    const std::string below = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Zarvik";
    EXPECT_EQ(valueIn(Version5 + set + Key + "\"installdir\"=\"2\"\r\n", InstallDir), "2");
    EXPECT_EQ(valueIn(Version5 + set + "\"INSTALLDIR\"=-\r\n", InstallDir), "(none)");
    EXPECT_EQ(valueIn(Version5 + set + "\"InstallDir\"=dword:1\r\n", InstallDir), "(none)");
    EXPECT_EQ(valueIn(Version5 + set + "[-" + below.substr(1) + "]\r\n\"x\"=\"y\"\r\n", InstallDir),
              "(none)");
    EXPECT_EQ(valueIn(Version5 + set + "[-" + below.substr(1) + "\\Zarvik]\r\n", InstallDir), "1");
    EXPECT_EQ(valueIn(Version5 + set + below + "]\r\n", InstallDir), "1");
}

TEST(RegistryExport, FaultsNameTheirPlace) {
    const std::pair<std::string, std::string> cases[] = {
        {"", "v.reg:1:1: this is no registry export"},
        {"[HKEY_LOCAL_MACHINE]", "v.reg:1:1: this is no registry export"},
        {Version5 + "\"a\"=\"b\"", "v.reg:3:1: this value belongs to no key"},
        {Version5 + "[HKEY_LOCAL", "v.reg:3:1: this key is not closed"},
        {Version5 + Key + "\"InstallDir\"=\"C:\\\\Sit", "v.reg:4:14: this string is not closed"},
        {Version5 + Key + "\"InstallDir\"=", "v.reg:4:14: this is no value"},
        {Version5 + Key + "\"InstallDir\"", "v.reg:4:13: \"=\" is missing"},
        {Version5 + Key + "\"InstallDir\"=\"C:\\Sites\"",
         "v.reg:4:18: a backslash in a string is written twice"},
        {Version5 + Key + "\"a\"=\"b\" c", "v.reg:4:9: the line has to end behind the value"},
        {Version5 + Key + "\"a\"=dword:", "v.reg:4:11: the number is missing"},
        {Version5 + Key + "\"a\"=hex(2):43,0", "v.reg:4:15: here a byte of two digits"},
        {Version5 + Key + "\"a\"=hex(2):43,\\\r\n", "v.reg:5:1: here a byte of two digits"},
        {Version5 + Key + "\"a\"=hex(2", "the type of the value is damaged"},
        {Version5 + Key + "InstallDir=x", "v.reg:4:1: here a key, a value or a comment"},
        {utf16(wide(Version5 + Key), false) + "\"",
         "v.reg:4:1: the export is cut off in the middle"},
    };
    for (const auto& [bytes, problem] : cases)
        EXPECT_THAT(problemOf(bytes), HasSubstr(problem)) << bytes;
}

TEST(RegistryExport, ACutOffExportNeverGivesPartOfAValue) {
    const auto whole = utf16(wide(Version5 + Key + "\"Other\"=hex(2):43,00,\\\r\n  00,00\r\n" +
                                  "\"InstallDir\"=\"C:\\\\Sites\\\\Main\"\r\n"),
                             false);
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const auto part = whole.substr(0, size);
        if (!problemOf(part).empty()) continue;
        const auto value = valueIn(part, InstallDir);
        EXPECT_TRUE(value == "(none)" || value == "C:\\Sites\\Main") << size << value;
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

}  // namespace
}  // namespace headerdtc
