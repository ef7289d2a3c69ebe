#include "host/page/control_instance.h"

#include "editor/editor.h"
#include "i18n/field_translation.h"
#include "links/links.h"
#include "runtime/host_binding.h"
#include "runtime/runtime_text.h"
#include "scripts/scripts.h"

namespace headerdtc {

struct ControlInstance::Behaviours {
    explicit Behaviours(HeaderDTC& dtc) : editor(dtc), links(dtc), scripts(dtc), translation(dtc) {
        provideRuntimeText(dtc);
    }

    Editor editor;
    Links links;
    Scripts scripts;
    FieldTranslation translation;
};

ControlInstance::ControlInstance(const Surroundings& surroundings, ModalLoop& modalLoop,
                                 DesignTimeControlSite& site)
    : dtc(surroundings, modalLoop), behaviours_(std::make_unique<Behaviours>(dtc)) {
    HostBinding(dtc).IDesignTimeControl_DesignTimeControlSite(&site);
    dtc.UserControl_Initialize();
}

ControlInstance::~ControlInstance() = default;

}  // namespace headerdtc
