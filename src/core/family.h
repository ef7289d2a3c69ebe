#pragma once

#include <string>
#include <string_view>

namespace headerdtc {

// The two parallel query families. The numbers are the ones that procedures for both take.
enum class Family : int { EAI = 1, ZEKO = 2 };

inline constexpr Family BothFamilies[] = {Family::ZEKO, Family::EAI};

// The pages of the tab strip, by their captions, and those that belong to no family.
inline constexpr std::string_view TabPages[] = {"General", "EAI",      "ZEKO",
                                                "I18N",    "EAI Link", "ZEKO Link"};
inline constexpr int GeneralTabPage = 0;
inline constexpr int I18NTabPage = 3;

// What differs between the families wherever a field, a tab or a stored row names one.
struct FamilyTraits {
    Family family;
    std::string_view prefix;     // of control, property and handler names
    std::string_view tag;        // in the translation tables
    std::string_view separator;  // before the field name in a field entry
    int tabPage;                 // its page of the tab strip
    int linkTabPage;
    int linkedCode;  // the number that the linked-field generators take
    std::string_view moveUpLinkedButton;
    std::string_view moveDownLinkedButton;
    std::string_view fieldsLabel;          // caption over the available fields
    std::string_view selectedFieldsLabel;  // caption over the selected fields
};

inline constexpr FamilyTraits FamilyTable[] = {
    {Family::EAI, "EAI", "eai", ".", 1, 4, 4, "EAIMoveUpLinkedField", "EAIMoveDownLinkedField",
     "Available:", "Selected:"},
    {Family::ZEKO, "ZEKO", "zeko", " - ", 2, 5, 5, "ZEKOMoveUpLinkdFieldCommand",
     "ZEKOMoveDownLinkdFieldCommand", "Available fields:", ""},
};

constexpr const FamilyTraits& traitsOf(Family family) {
    return FamilyTable[family == Family::EAI ? 0 : 1];
}

// The full name of a family's control, property or handler: prefix + role.
inline std::string familyName(Family family, std::string_view role) {
    std::string name(traitsOf(family).prefix);
    name += role;
    return name;
}

constexpr Family otherFamily(Family family) {
    return family == Family::EAI ? Family::ZEKO : Family::EAI;
}

}  // namespace headerdtc
