#pragma once

#include "host/inspection/page_view.h"
#include "platform/text.h"

#include <string>
#include <string_view>
#include <vector>

// The rules that a page is checked against, one function each. All of them look at one control and
// add what they have to say; rule_table.cpp names them.
namespace headerdtc::rules {

// fields.cpp: what has to be in the catalogue
void providerIsKnown(const ControlView& control, Remarks& remarks);
void linkedProviderIsKnown(const ControlView& control, Remarks& remarks);
void fieldsAreOffered(const ControlView& control, Remarks& remarks);
void keyFieldsAreOffered(const ControlView& control, Remarks& remarks);
void fieldsHaveTheirSeparator(const ControlView& control, Remarks& remarks);
void fieldsAreThereOnce(const ControlView& control, Remarks& remarks);
void linkedFieldsAreOffered(const ControlView& control, Remarks& remarks);
void linksAreWhole(const ControlView& control, Remarks& remarks);

// criteria.cpp
void criteriaAreComplete(const ControlView& control, Remarks& remarks);
void operatorsAreKnown(const ControlView& control, Remarks& remarks);
void valuesHaveOneType(const ControlView& control, Remarks& remarks);
void valueTypesAreRead(const ControlView& control, Remarks& remarks);
void functionsAreDefined(const ControlView& control, Remarks& remarks);
void namesAreAllowed(const ControlView& control, Remarks& remarks);
void namesAreDefinedOnce(const ControlView& control, Remarks& remarks);

// files.cpp
void includesAreThere(const ControlView& control, Remarks& remarks);
void includesComeOnce(const ControlView& control, Remarks& remarks);
void includesAreWhole(const ControlView& control, Remarks& remarks);
void stylesheetIsThere(const ControlView& control, Remarks& remarks);

// script.cpp
void valuesFitTheCodePage(const ControlView& control, Remarks& remarks);
void valuesFitTheScript(const ControlView& control, Remarks& remarks);
void valuesAreNoPlaceholders(const ControlView& control, Remarks& remarks);
void valuesHaveNoNul(const ControlView& control, Remarks& remarks);
void scriptsAreWhole(const ControlView& control, Remarks& remarks);
void statementsFitTheEngine(const ControlView& control, Remarks& remarks);

// page.cpp
void textIsUpToDate(const ControlView& control, Remarks& remarks);
void pageCanBeGenerated(const ControlView& control, Remarks& remarks);
void propertiesCanBeRead(const ControlView& control, Remarks& remarks);
void idIsItsOwn(const ControlView& control, Remarks& remarks);
void standsBehindTheDirective(const ControlView& control, Remarks& remarks);

// ---- shared by them --------------------------------------------------------------------------

// A remark about one stored text.
Remark about(const StoredItem& item, std::optional<Family> family, std::string text,
             std::string advice);

// A field entry has to be one that the provider offers to the family.
void requireOffered(const StoredItem& field, StoredRole role, Family family,
                    const ProviderFields& offered, const std::string& provider, Remarks& remarks);
// The same for a list of them; one remark where the provider offers nothing to the family at all.
void requireAllOffered(const std::vector<StoredItem>& fields, StoredRole role, Family family,
                       const ProviderFields& offered, const std::string& provider,
                       Remarks& remarks);

}  // namespace headerdtc::rules
