// make_site FOLDER PAGES FIELDS: a site whose pages have one control each with that many return
// fields, and a catalogue and template to go with them.

#include "bench/configured_control.h"
#include "host/page/page_markup.h"
#include "host/page/text_property_bag.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;
using namespace headerdtc;

void write(const fs::path& file, const std::string& bytes) {
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
}

// A page's properties with return fields in one family, as most pages have them.
StoredProperties pageProperties(int fields) {
    bench::ConfiguredControl control(0);
    FamilyControls& zeko = control.dtc.ZEKO;
    for (int i = 1; i <= fields; ++i)
        zeko.SelectedFieldsList.AddItem(std::to_string(i) + " - FIELD" + std::to_string(i));
    CollectingPropertyBag bag;
    control.dtc.UserControl_WriteProperties(bag);
    return bag.asStored();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) return std::fputs("usage: make_site FOLDER PAGES FIELDS\n", stderr), 2;
    const fs::path folder = argv[1];
    const int pages = std::atoi(argv[2]), fields = std::atoi(argv[3]);

    write(folder / "headerdtc.toml",
          "registry = \"velmora.reg\"\n[project]\nroot = \"pages\"\n[drives]\nC = \"c\"\n"
          "[datasource]\ncatalogue = \"catalogue.json\"\n");
    write(folder / "velmora.reg",
          "REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Zarvik\\Zarvik Velmora]\r\n"
          "\"InstallDir\"=\"C:\\\\Suite\"\r\n");
    write(folder / "catalogue.json",
          R"({"providers": [{"name": "Orders", "zeko": {"fields": [], "keyFields": []}}]})");
    write(folder / "c/Suite/Orvane/include/DTC_TEMPLATE.ASP",
          "<EXTRA_INCLUDES><%\r\n<ADD_ZEKO_RETURN_FIELDS>\r\n<SPECIFY_ZEKO_CRITERIA>\r\n%>\r\n");
    const std::string page = "<html>\r\n" +
                             writeControl("page.asp", {"HeaderDTC1", pageProperties(fields), {}},
                                          CodePage("windows-1252")) +
                             "\r\n</html>\r\n";
    constexpr int PagesOfAFolder = 500;
    for (int i = 0; i < pages; ++i) {
        write(folder / "pages" / ("folder" + std::to_string(i / PagesOfAFolder)) /
                  ("page" + std::to_string(i) + ".asp"),
              page);
    }
    std::printf("%d pages of %zu bytes\n", pages, page.size());
}
