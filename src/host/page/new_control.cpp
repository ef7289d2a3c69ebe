#include "host/page/new_control.h"

#include "core/header_dtc.h"
#include "host/files/file_replacer.h"
#include "host/page/quiet_host.h"
#include "host/page/text_property_bag.h"
#include "platform/database.h"
#include "platform/runtime_error.h"
#include "platform/surroundings.h"

namespace headerdtc {
namespace {

// The surroundings of a control that is made only to be stored: it needs none of them.
struct NoSurroundings : Registry, DataSourceFactory, Database, TextFiles, Clock {
    std::string RegRead(const std::string&) override { return fail(); }
    std::unique_ptr<DataSource> createDataSource() override { return fail(), nullptr; }
    std::unique_ptr<Connection> createConnection() override { return fail(), nullptr; }
    std::string GetConnectString(std::int32_t) override { return fail(); }
    std::string labelConnectString() override { return fail(); }
    std::string readText(const std::string&) override { return fail(); }
    void writeText(const std::string&, const std::string&) override { fail(); }
    std::string shortDate() override { return {}; }

  private:
    static std::string fail() { throw RuntimeError(ErrorNumber::CannotCreateObject); }
};

}  // namespace

ControlContent newControlContent(const std::string& id) {
    NoSurroundings none;
    QuietHost host;
    const HostFaces faces = host.faces();
    HeaderDTC dtc({faces.messages, faces.fileDialog, none, none, none, none, none, faces.changes},
                  faces.modalLoop);
    dtc.UserControl_Initialize();
    dtc.UserControl_InitProperties();
    CollectingPropertyBag bag;
    dtc.UserControl_WriteProperties(bag);
    return {id, bag.asStored(), {}};
}

std::string newPage(const std::filesystem::path& file, const CodePage& codePage) {
    return "<%@ LANGUAGE=\"VBScript\" %>\r\n" +
           writeControl(file.string(), newControlContent("HeaderDTC1"), codePage) +
           "\r\n<html>\r\n<head>\r\n<title></title>\r\n</head>\r\n<body>\r\n</body>\r\n</html>\r\n";
}

void makeNewPage(const std::filesystem::path& file, const CodePage& codePage) {
    createWholeFile(file, newPage(file, codePage));
}

void addNewControl(const PageDocument& page, std::optional<int> line) {
    const PageMarkup& markup = page.markup();
    replaceWholeFile(page.file(), markup.withNewControl(line, newControlContent(markup.freeId())),
                     page.stamp());
}

}  // namespace headerdtc
