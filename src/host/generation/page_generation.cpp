#include "host/generation/page_generation.h"

#include "host/generation/page_change.h"
#include "host/page/page_session.h"
#include "host/page/quiet_host.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace headerdtc {
namespace {

using Verdict = GeneratedPage::Verdict;

void generate(const std::filesystem::path& page, std::optional<std::string> bytes, Sites& sites,
              LossGuard guard, GeneratedPage& result) {
    const auto site = sites.forPage(page);
    if (!bytes) {
        WholeFile file = readWholeFile(page);
        result.stamp = file.stamp;
        bytes = std::move(file.bytes);
    }
    PageMarkup markup(page.string(), *std::move(bytes), site->configuration->codePage);
    if (markup.controls().empty()) return;

    std::vector<ControlContent> contents;
    std::vector<std::string> references;
    for (const ControlSpan& span : markup.controls()) {
        QuietHost host;
        OpenControl control(site, page, span, host.faces());
        MadeContent made = control.content();
        std::move(host.messages.begin(), host.messages.end(), std::back_inserter(result.messages));
        if (made.doubt && isRefused(*made.doubt, guard))
            result.doubts.push_back({contents.size(), *made.doubt});
        const auto told = referencesTold(span, made.content.runtimeText, markup.codePage());
        if (told) references.push_back(*told);
        contents.push_back(std::move(made.content));
    }
    result.verdict = Verdict::UpToDate;
    if (!markup.holds(contents)) {
        result.after = markup.readableWith(contents);
        if (result.after != markup.bytes()) result.verdict = Verdict::Stale;
    }
    for (const auto& doubt : result.doubts) {
        const bool isLoss = doubt.doubt.kind == SaveDoubt::Kind::Loss;
        result.verdict = std::max(isLoss ? Verdict::Losing : Verdict::Failing, result.verdict);
    }
    if (!result.isFailure())
        std::move(references.begin(), references.end(), std::back_inserter(result.messages));
    if (result.verdict != Verdict::Stale) result.after.clear();
    for (const auto& doubt : result.doubts)
        result.messages.push_back(leftAlone(markup.controls()[doubt.control], doubt.doubt));
    result.before = std::move(markup).bytes();
}

}  // namespace

std::string leftAlone(const ControlSpan& control, const SaveDoubt& doubt) {
    const bool isLoss = doubt.kind == SaveDoubt::Kind::Loss;
    return (isLoss ? "left as it was, because something would be lost: " : "left as it was: ") +
           doubt.reason + " (" + control.id + ", line " + std::to_string(control.line) + "); " +
           (isLoss ? "--force writes the new text and keeps what is stored" : "correct that first");
}

std::optional<std::string> referencesTold(const ControlSpan& control,
                                          const std::string& runtimeText,
                                          const CodePage& codePage) {
    const std::string lacking = codePage.lackingInWords(runtimeText);
    if (lacking.empty()) return std::nullopt;
    return control.id + ", line " + std::to_string(control.line) + ": " + codePage.name() +
           " lacks " + lacking +
           ": the script has numeric references in their place; write other ones, or make the "
           "page UTF-8 by a byte-order mark";
}

namespace {

GeneratedPage generateGuarded(const std::filesystem::path& page, std::optional<std::string> bytes,
                              Sites& sites, LossGuard guard) {
    GeneratedPage result;
    if (const auto failure =
            failureOf(page, [&] { generate(page, std::move(bytes), sites, guard, result); })) {
        const bool ofConfiguration = failure->of == PageFailure::Of::Configuration;
        result.verdict = ofConfiguration ? Verdict::NotConfigured : Verdict::NotReadable;
        result.messages.push_back(failure->text);
    }
    return result;
}

}  // namespace

GeneratedPage generatePage(const std::filesystem::path& page, Sites& sites, LossGuard guard) {
    return generateGuarded(page, std::nullopt, sites, guard);
}

GeneratedPage generatePage(const std::filesystem::path& page, std::string bytes, Sites& sites,
                           LossGuard guard) {
    return generateGuarded(page, std::move(bytes), sites, guard);
}

}  // namespace headerdtc
