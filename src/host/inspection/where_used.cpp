#include "host/inspection/where_used.h"

#include "core/stored_keys.h"
#include "host/files/whole_file.h"
#include "host/inspection/property_line.h"
#include "host/inspection/provider_fields.h"
#include "host/translations/translation_table.h"
#include "platform/text.h"

#include <algorithm>

namespace headerdtc {
namespace {

bool isField(const WhereQuery& query, const StoredConfiguration& configuration,
             std::optional<Family> family, const StoredItem& item) {
    if (!family) return false;
    const auto field = fieldNameIn(item.text, *family);
    if (!equalIgnoringCase(trimBlanks(item.text), trimBlanks(query.value)) &&
        !(field && equalIgnoringCase(trimBlanks(*field), query.value)))
        return false;
    const auto named = parseStoredName(item.property)->catalogueName();
    if (!named) return false;
    const StoredItem& provider =
        named->ofLinked ? configuration.linkedDataProvider : configuration.dataProvider;
    return query.ofProvider.empty() || equalIgnoringCase(provider.text, query.ofProvider);
}

// Both slashes separate folders; a leading one is ignored.
std::string asSitePath(std::string_view path) {
    std::string result = replaceAll(trimBlanks(path), "\\", "/");
    result.erase(0, result.find_first_not_of('/'));
    return result;
}

bool isFile(const std::string& asked, const StoredItem& item) {
    const std::string wanted = asSitePath(asked), stored = asSitePath(item.text);
    if (equalIgnoringCase(wanted, stored)) return true;
    const bool isNameAlone = wanted.find('/') == std::string::npos;
    return isNameAlone && equalIgnoringCase(wanted, stored.substr(stored.rfind('/') + 1));
}

std::string fieldKey(std::string_view provider, std::string_view family, std::string_view field) {
    std::string key(provider);
    key += '\0';
    key += family;
    key += '\0';
    key += field;
    return upperCase(key);
}

bool isAmong(const std::vector<std::string>& sorted, const std::string& key) {
    return std::binary_search(sorted.begin(), sorted.end(), key);
}

template <class Row>
std::vector<std::string> fieldsOf(const std::vector<Row>& rows, std::string_view label) {
    std::vector<std::string> fields;
    for (const Row& row : rows) {
        if (equalIgnoringCase(row.label, label))
            fields.push_back(fieldKey(row.provider, row.family, row.field));
    }
    std::sort(fields.begin(), fields.end());
    return fields;
}

}  // namespace

PageUses WhereUsed::lookInto(const std::filesystem::path& page) {
    PageUses result;
    const auto failure = failureOf(page, [&] { lookInto(page, result); });
    if (failure) result.failure = failure;
    return result;
}

void WhereUsed::lookInto(const std::filesystem::path& page, PageUses& result) {
    const auto site = sites_.forPage(page);
    const PageMarkup markup(page.string(), readWholeFile(page).bytes,
                            site->configuration->codePage);
    result.hasControl = !markup.controls().empty();
    const LabelledFields* labelled = nullptr;
    if (query_.kind == WhereQuery::Kind::Label && result.hasControl) {
        labelled = &labelledFields(site);
        if (!labelled->failure.empty()) result.failure = {PageFailure::Of::Site, labelled->failure};
    }
    for (const ControlSpan& control : markup.controls()) {
        const StoredConfiguration configuration = readStoredConfiguration(control.properties);
        const auto isLabelled = [&](StoredRole role, Family family, const StoredItem& item) {
            const bool ofName = role == StoredRole::TranslatedName;
            if (!labelled || (!ofName && role != StoredRole::TranslatedValue)) return false;
            const auto field = fieldNameIn(item.text, family);
            return field && isAmong(ofName ? labelled->names : labelled->values,
                                    fieldKey(configuration.dataProvider.text, traitsOf(family).tag,
                                             trimBlanks(*field)));
        };
        const auto isUse = [&](StoredRole role, std::optional<Family> family,
                               const StoredItem& item) {
            switch (query_.kind) {
                case WhereQuery::Kind::Provider:
                    return (role == StoredRole::DataProvider ||
                            role == StoredRole::LinkedDataProvider) &&
                           equalIgnoringCase(item.text, query_.value);
                case WhereQuery::Kind::Field:
                    return isField(query_, configuration, family, item);
                case WhereQuery::Kind::Include:
                    return role == StoredRole::Include && isFile(query_.value, item);
                case WhereQuery::Kind::Stylesheet:
                    return role == StoredRole::Stylesheet && isFile(query_.value, item);
                case WhereQuery::Kind::Label:
                    break;
            }
            return family && isLabelled(role, *family, item);
        };
        forEachItem(configuration,
                    [&](StoredRole role, std::optional<Family> family, const StoredItem& item) {
                        if (!isUse(role, family, item)) return;
                        result.uses.push_back({lineOfProperty(markup, control, item.property),
                                               control.id, role, family, item});
                    });
    }
    std::stable_sort(result.uses.begin(), result.uses.end(),
                     [](const Use& a, const Use& b) { return a.line < b.line; });
}

const WhereUsed::LabelledFields& WhereUsed::labelledFields(const std::shared_ptr<Site>& site) {
    const std::lock_guard lock(mutex_);
    const auto [found, isNew] = labelled_.try_emplace(site);
    LabelledFields& fields = found->second;
    if (!isNew) return fields;
    try {
        const auto connection = openTranslations(site->database);
        fields.names = fieldsOf(readFieldNameRows(*connection), query_.value);
        fields.values = fieldsOf(readFieldValueRows(*connection), query_.value);
    } catch (const std::exception& error) {
        fields.failure = std::string("the translation database cannot be read: ") + error.what();
    }
    return fields;
}

}  // namespace headerdtc
