#pragma once

#include "platform/surroundings.h"

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace headerdtc {

class Connection;

// A field value with the label that translates it and that label's US-English text.
struct FieldValueTranslation {
    std::string value;
    std::string label;
    std::string text;
};

// The translation tables I18NTEXT, I18NFIELDNAMES and I18NFIELDVALUES. Nothing is kept between two
// operations: each opens a connection of its own, and all but AddFieldValueInOneStep commit every
// statement for itself. Values are spliced into the statements as they are; one that breaks a
// statement, an apostrophe say, is answered by the database. Every operation raises the database's
// RuntimeError.
//
// bisType is a family's tag, "eai" or "zeko". Texts are those of locale 1033.
class TranslationStore {
  public:
    explicit TranslationStore(const Surroundings& surroundings) : surroundings_(surroundings) {}

    bool FieldnameTranslationExists(const std::string& provider, const std::string& bisType,
                                    const std::string& fieldname);
    // The labels that sort after SLBDA1999.
    std::vector<std::string> ListLabels();
    // The labels that begin with SLBDA.
    std::vector<std::string> ListRangeLabels();
    // Nothing when the label has no text.
    std::optional<std::string> LabelText(const std::string& label);
    // The values of a field whose label has a text.
    std::vector<FieldValueTranslation> ListFieldValueTranslations(const std::string& provider,
                                                                  const std::string& bisType,
                                                                  const std::string& fieldname);
    // Gives a field name its label, and inserts the field name unless exactly one is there.
    void AssignFieldnameLabel(const std::string& provider, const std::string& bisType,
                              const std::string& fieldname, const std::string& label);
    void DeleteFieldValueTranslation(const std::string& provider, const std::string& bisType,
                                     const std::string& fieldname, const std::string& value);
    void ChangeFieldValueTranslation(const std::string& provider, const std::string& bisType,
                                     const std::string& fieldname, const std::string& value,
                                     const std::string& label);
    void InsertFieldValueTranslation(const std::string& provider, const std::string& bisType,
                                     const std::string& fieldname, const std::string& value,
                                     const std::string& label);
    // Gives a label its text, and inserts the label unless exactly one is there; tells the author
    // what came of it. The only operation on the fixed data source.
    void AddLabel(const std::string& label, const std::string& text);
    // Adds a label with its text and a value that has the label, both or neither; tells the author
    // what came of it.
    void AddFieldValueInOneStep(const std::string& provider, const std::string& bisType,
                                const std::string& fieldname, const std::string& value,
                                const std::string& label, const std::string& text);

  private:
    std::string TranslationConnectString();
    std::unique_ptr<Connection> open(const std::string& connectString);
    std::vector<std::string> listLabels(std::string_view statement);
    // A single write, whose connection is dropped without being closed.
    void write(std::string_view statement, std::initializer_list<std::string_view> values);
    void tell(const std::string& text);

    const Surroundings& surroundings_;
};

}  // namespace headerdtc
