#pragma once

#include "platform/dictionary.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace headerdtc {

class Database;

// Plain message boxes: one text, an OK button, the default title. Returns when acknowledged.
class MessageBox {
  public:
    virtual ~MessageBox() = default;
    virtual void show(const std::string& text) = 0;
    // The same box, for the report of a failure; lets the surroundings tell it from a remark.
    virtual void showError(const std::string& text) { show(text); }
};

// What a file-open dialog is asked to show. Paths are Windows paths; a filter reads
// "description|pattern".
struct FileDialogRequest {
    std::string title;
    std::string initialDirectory;
    std::string filter;
};

// The common file-open dialog of the surroundings.
class FileDialog {
  public:
    virtual ~FileDialog() = default;
    // The chosen file as a full Windows path, or empty when the author cancelled.
    virtual std::string open(const FileDialogRequest& request) = 0;
};

// Read access to the system registry.
class Registry {
  public:
    virtual ~Registry() = default;
    // The string value at a full path such as "HKLM\SOFTWARE\...\InstallDir"; the last piece is
    // the value's name. Key and value names compare without regard to case. Raises RuntimeError
    // when there is no registry or no such value.
    virtual std::string RegRead(const std::string& path) = 0;
};

// One object of the suite's data-source component: the metadata of data providers. Every request
// raises RuntimeError when the source cannot be read; a provider that it does not know gives an
// empty result.
class DataSource {
  public:
    virtual ~DataSource() = default;
    // The names of the data providers, in the source's order.
    virtual std::vector<std::string> providerNames() = 0;
    // ZEKO fields of a provider: sequence number as text -> field name.
    virtual Dictionary<std::string> zekoFields(const std::string& provider) = 0;
    // ZEKO key fields of a provider; the items are the field names.
    virtual Dictionary<std::string> zekoKeyFields(const std::string& provider) = 0;
    // EAI record groups of a provider; the items are the group names.
    virtual Dictionary<std::string> eaiGroups(const std::string& provider) = 0;
    // Fields of one record group; the items are the field names.
    virtual Dictionary<std::string> eaiGroupFields(const std::string& provider,
                                                   const std::string& group) = 0;
    // EAI key fields of a provider; the items are the field names.
    virtual Dictionary<std::string> eaiKeyFields(const std::string& provider) = 0;
};

// Creates data-source objects. Raises RuntimeError (429) when the component is not there.
class DataSourceFactory {
  public:
    virtual ~DataSourceFactory() = default;
    virtual std::unique_ptr<DataSource> createDataSource() = 0;
};

// Sequential text files, addressed by Windows paths; text is UTF-8, the code page of the file is
// the implementation's business.
class TextFiles {
  public:
    virtual ~TextFiles() = default;
    // The whole text of a file, its line ends as they stand. Raises RuntimeError (53, 70, 75, 76).
    virtual std::string readText(const std::string& windowsPath) = 0;
    // Replaces or creates a file. Raises RuntimeError (61, 70, 75, 76).
    virtual void writeText(const std::string& windowsPath, const std::string& text) = 0;
};

class Clock {
  public:
    virtual ~Clock() = default;
    // Today's date without time of day, in the short form of the current user's locale.
    virtual std::string shortDate() = 0;
};

// The entries of the host's "TargetEnvironment" context that the control reads.
enum class TargetEnvironmentEntry : int { ProjectRoot = 2, PagePath = 6 };

// The site object that the host of a design-time control hands to it.
class DesignTimeControlSite {
  public:
    virtual ~DesignTimeControlSite() = default;
    // One text entry of the "TargetEnvironment" context. Raises RuntimeError when it is missing.
    virtual std::string targetEnvironment(TargetEnvironmentEntry entry) = 0;
};

// Receives the property-changed notices of the control.
class PropertyChangeSink {
  public:
    virtual ~PropertyChangeSink() = default;
    virtual void propertyChanged(std::string_view property) = 0;
};

// Everything that one control asks of its surroundings. The objects outlive the control.
struct Surroundings {
    MessageBox& messages;
    FileDialog& fileDialog;
    Registry& registry;
    DataSourceFactory& dataSources;
    Database& database;
    TextFiles& textFiles;
    Clock& clock;
    PropertyChangeSink& changes;
};

}  // namespace headerdtc
