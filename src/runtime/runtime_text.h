#pragma once

#include <span>
#include <string>
#include <string_view>

namespace headerdtc {

class HeaderDTC;

// The template file, below the install directory.
inline constexpr std::string_view TemplateFile = "Orvane\\include\\DTC_TEMPLATE.ASP";

// The variables of the generated script, each with the placeholder that the template has for it.
struct ScriptVariable {
    std::string_view placeholder, name;
};
inline constexpr ScriptVariable ScriptVariables[] = {
    {"<RETURN_FIELDS_VARNAME>", "mReturnFields"},
    {"<LINKED_RETURN_FIELDS_VARNAME>", "mReturnLinkedFields"},
    {"<LINKED_FIELDS_VARNAME>", "mLinkedFields"},
    {"<LINKED_DATAPROVIDER_VARNAME>", "lLinkedDataProvider"},
    {"<DATAPROVIDER_VARNAME>", "mDataProvider"},
};

// One request for runtime text: the control, and what one step leaves for a later one.
struct RuntimeTextRequest {
    HeaderDTC& control;
    std::string pathToRoot = {};      // the way from the page to the root of its project
    std::string eaiFieldValues = {};  // the EAI field-value translations
};

// One replacement in the template. The value is asked for when the step's turn comes, whether or
// not the placeholder occurs: asking may show messages, and may fail.
struct RuntimeTextStep {
    std::string_view placeholder;
    std::string (*value)(RuntimeTextRequest&);
};

// All of them in their order, which matters: values bring in placeholders of later steps.
std::span<const RuntimeTextStep> runtimeTextSteps();

// The first placeholder that a text has, as it is written there: the case of letters does not
// matter. Empty when there is none.
std::string_view placeholderIn(std::string_view text);

// A text as reading it line by line gives it: a line ends at CR LF, at LF or at CR, and every line,
// the last one too, then ends in CR LF. An empty text stays empty.
std::string withLineEnds(std::string_view text);

// The server script that the host writes into the page: the template with all its steps done. Any
// failure ends the expansion at that step and is reported in a message box; the text comes back as
// it stood then, empty when the template could not be read.
std::string GetRuntimeText(HeaderDTC& control);

// Lets a control answer IProvideRuntimeText_GetRuntimeText.
void provideRuntimeText(HeaderDTC& control);

}  // namespace headerdtc
