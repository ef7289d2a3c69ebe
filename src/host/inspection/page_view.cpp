#include "host/inspection/page_view.h"

#include "host/site/site.h"

namespace headerdtc {

PageView::PageView(const PageMarkup& markup, const std::filesystem::path& file,
                   std::shared_ptr<SiteFacts> facts, const GeneratedPage& generated)
    : markup_(markup), file_(file), facts_(std::move(facts)), generated_(generated) {
    for (const ControlSpan& control : markup.controls())
        configurations_.push_back(readStoredConfiguration(control.properties));
}

bool PageView::definesFunction(std::string_view name) const {
    if (isBuiltInFunction(name)) return true;
    if (!functions_) functions_ = gatherFunctions();
    const std::string key = functionKey(name);
    return functions_->contains(key) || facts_->siteTemplate().functions.contains(key);
}

// Generated text is left out: it may define functions that the configuration no longer has.
SiteFacts::Functions PageView::gatherFunctions() const {
    const CodePage& codePage = markup_.codePage();
    std::string own;
    std::size_t begin = 0;
    for (const ControlSpan& control : markup_.controls()) {
        own += codePage.decode(markup_.textOf({begin, control.whole.begin})) + "\n";
        begin = control.whole.end;
    }
    own += codePage.decode(markup_.textOf({begin, markup_.bytes().size()}));

    SiteFacts::Functions all = facts_->functionsOf(own, std::filesystem::absolute(file_));
    for (const StoredConfiguration& configuration : configurations_) {
        for (const auto& script : configuration.scripts)
            all.merge(ScriptText::read(script.text, ScriptText::Form::Script).functions);
        for (const StoredItem& include : configuration.includes) {
            const auto file = facts_->find(include.text);
            if (!file) continue;
            const auto& functions = facts_->contentsOf(*file).functions;
            all.insert(functions.begin(), functions.end());
        }
    }
    return all;
}

const SiteFacts::Provider* ControlView::provider() const {
    return facts().provider(configuration().dataProvider.text);
}

const SiteFacts::Provider* ControlView::linkedProvider() const {
    if (!configuration().hasLinkedProvider()) return nullptr;
    return facts().provider(configuration().linkedDataProvider.text);
}

}  // namespace headerdtc
