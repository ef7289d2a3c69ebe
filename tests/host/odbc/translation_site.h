#pragma once

#include "i18n/translation_store.h"
#include "support/fake_surroundings.h"
#include "support/prologue.h"
#include "translation_database.h"

namespace headerdtc::testing {

// The control's statements on a real database.
class TranslationSite : public ::testing::Test {
  protected:
    // Another log-on for the statements that follow.
    void logOn(const std::string& connectString) {
        auto settings = translations.settings;
        settings.connectString = settings.labelConnectString = connectString;
        database = OdbcDatabase(settings);
    }

    TranslationDatabase translations;
    OdbcDatabase database{translations.settings};
    FakeSurroundings outside;
    Surroundings surroundings{outside.messages,    outside.fileDialog, outside.registry,
                              outside.dataSources, database,           outside.textFiles,
                              outside.clock,       outside.changes};
    TranslationStore store{surroundings};
};

}  // namespace headerdtc::testing
