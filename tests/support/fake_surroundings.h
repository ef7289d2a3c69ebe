#pragma once

#include "controls/form.h"
#include "platform/property_bag.h"
#include "platform/runtime_error.h"
#include "platform/surroundings.h"
#include "platform/text.h"
#include "support/fake_database.h"

#include <algorithm>
#include <deque>
#include <map>
#include <optional>

// Stand-ins for everything that a control asks of its surroundings. They hold plain data that a
// test fills and reads; nothing here touches files, windows or a database.
//
//     FakeSurroundings outside;
//     outside.dataSources.providers = {{.name = "Orders", .zekoKeyFields = {"ORDNO"}}};
//     HeaderDTC dtc(outside.all(), outside.modalLoop);
namespace headerdtc::testing {

// Acknowledges every box at once.
class RecordingMessageBox : public MessageBox {
  public:
    void show(const std::string& text) override {
        shown.push_back(text);
        if (onShow) onShow(text);
    }
    void showError(const std::string& text) override {
        errors.push_back(text);
        show(text);
    }

    std::vector<std::string> shown;   // every text, in order
    std::vector<std::string> errors;  // those of them that report a failure
    std::function<void(const std::string&)> onShow;
};

// As an author who cancels.
class CancelledFileDialog : public FileDialog {
  public:
    std::string open(const FileDialogRequest&) override { return {}; }
};

struct LessIgnoringCase {
    bool operator()(const std::string& a, const std::string& b) const {
        return upperCase(a) < upperCase(b);
    }
};

class MapRegistry : public Registry {
  public:
    std::string RegRead(const std::string& path) override {
        const auto found = values.find(path);
        if (found == values.end())
            throw RuntimeError(ErrorNumber::CannotCreateObject, "no registry value " + path);
        return found->second;
    }

    std::map<std::string, std::string, LessIgnoringCase> values;
};

// One data provider of the fake catalogue.
struct FakeProvider {
    std::string name = {};
    std::vector<std::pair<std::string, std::string>> zekoFields = {};  // number as text, name
    std::vector<std::string> zekoKeyFields = {};
    std::vector<std::pair<std::string, std::vector<std::string>>> eaiGroups = {};  // name, fields
    std::vector<std::string> eaiKeyFields = {};
};

// Makes data-source objects over one catalogue.
class FakeDataSources : public DataSourceFactory {
  public:
    std::unique_ptr<DataSource> createDataSource() override {
        if (missing) throw RuntimeError(ErrorNumber::CannotCreateObject);
        return std::make_unique<Source>(*this);
    }

    std::vector<FakeProvider> providers;
    bool missing = false;        // the component is not there: 429
    std::string failingRequest;  // a request, as it stands in `requests`, that fails: 57
    // What was asked for, in order: the operation's name, " " and the provider.
    std::vector<std::string> requests;

  private:
    class Source : public DataSource {
      public:
        explicit Source(FakeDataSources& owner) : owner_(owner) {}

        std::vector<std::string> providerNames() override {
            note("providerNames");
            std::vector<std::string> names;
            for (const auto& provider : owner_.providers)
                names.push_back(provider.name);
            return names;
        }
        Dictionary<std::string> zekoFields(const std::string& provider) override {
            Dictionary<std::string> fields;
            for (const auto& [number, field] : find("zekoFields", provider).zekoFields)
                fields.Add(number, field);
            return fields;
        }
        Dictionary<std::string> zekoKeyFields(const std::string& provider) override {
            return numbered(find("zekoKeyFields", provider).zekoKeyFields);
        }
        Dictionary<std::string> eaiGroups(const std::string& provider) override {
            std::vector<std::string> names;
            for (const auto& [group, fields] : find("eaiGroups", provider).eaiGroups)
                names.push_back(group);
            return numbered(names);
        }
        Dictionary<std::string> eaiGroupFields(const std::string& provider,
                                               const std::string& group) override {
            for (const auto& [name, fields] : find("eaiGroupFields", provider).eaiGroups) {
                if (name == group) return numbered(fields);
            }
            return {};
        }
        Dictionary<std::string> eaiKeyFields(const std::string& provider) override {
            return numbered(find("eaiKeyFields", provider).eaiKeyFields);
        }

      private:
        void note(const std::string& request) {
            owner_.requests.push_back(request);
            if (request == owner_.failingRequest) throw RuntimeError(ErrorNumber::DeviceIoError);
        }
        const FakeProvider& find(const std::string& request, const std::string& name) {
            static const FakeProvider unknown;
            note(request + " " + name);
            const auto found =
                std::find_if(owner_.providers.begin(), owner_.providers.end(),
                             [&](const FakeProvider& provider) { return provider.name == name; });
            return found == owner_.providers.end() ? unknown : *found;
        }
        static Dictionary<std::string> numbered(const std::vector<std::string>& items) {
            Dictionary<std::string> dictionary;
            for (const auto& item : items)
                dictionary.Add(std::to_string(dictionary.Count() + 1), item);
            return dictionary;
        }

        FakeDataSources& owner_;
    };
};

// Files by their Windows paths, without regard to case.
class MemoryTextFiles : public TextFiles {
  public:
    std::string readText(const std::string& windowsPath) override {
        failWhereTold(windowsPath);
        const auto found = files.find(windowsPath);
        if (found == files.end()) throw RuntimeError(ErrorNumber::FileNotFound);
        return found->second;
    }
    void writeText(const std::string& windowsPath, const std::string& text) override {
        failWhereTold(windowsPath);
        files[windowsPath] = text;
    }

    std::map<std::string, std::string, LessIgnoringCase> files;
    // Reading or writing these paths fails.
    std::map<std::string, ErrorNumber, LessIgnoringCase> failures;

  private:
    void failWhereTold(const std::string& path) const {
        if (const auto failure = failures.find(path); failure != failures.end())
            throw RuntimeError(failure->second);
    }
};

class FixedClock : public Clock {
  public:
    std::string shortDate() override { return today; }

    std::string today = "1/2/2024";
};

class RecordingPropertyChangeSink : public PropertyChangeSink {
  public:
    void propertyChanged(std::string_view property) override { changed.emplace_back(property); }

    std::vector<std::string> changed;  // in the order of the notices
};

// The host's site: "TargetEnvironment" entries by number.
class FakeSite : public DesignTimeControlSite {
  public:
    std::string targetEnvironment(TargetEnvironmentEntry entry) override {
        const auto found = entries.find(static_cast<int>(entry));
        if (found == entries.end()) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
        return found->second;
    }

    std::map<int, std::string> entries;
};

// An ordered, typed property bag that leaves defaults out. With `asText` it reads as a page does:
// every stored value comes back as a string.
class OrderedPropertyBag : public PropertyBag {
  public:
    PropertyValue ReadProperty(std::string_view name, const PropertyValue& fallback) override {
        reads.emplace_back(name);
        if (name == failingName) throw RuntimeError(ErrorNumber::DeviceIoError);
        const auto found = find(name);
        if (found == entries.end()) return fallback;
        return asText ? PropertyValue(textOf(found->second)) : found->second;
    }
    void WriteProperty(std::string_view name, const PropertyValue& value,
                       const PropertyValue& fallback) override {
        writes.push_back({std::string(name), value, fallback});
        if (name == failingName) throw RuntimeError(ErrorNumber::DeviceIoError);
        if (value != fallback) entries.emplace_back(name, value);
    }

    bool has(std::string_view name) { return find(name) != entries.end(); }
    // The stored text of a name, nothing when it is not stored.
    std::optional<std::string> text(std::string_view name) {
        const auto found = find(name);
        if (found == entries.end()) return std::nullopt;
        return textOf(found->second);
    }
    void set(std::string_view name, PropertyValue value) {
        const auto found = find(name);
        if (found == entries.end()) {
            entries.emplace_back(name, std::move(value));
        } else {
            found->second = std::move(value);
        }
    }

    // Booleans are "-1" and "0", as in a page.
    static std::string textOf(const PropertyValue& value) {
        if (const auto* flag = std::get_if<bool>(&value)) return *flag ? "-1" : "0";
        if (const auto* number = std::get_if<std::int16_t>(&value)) return std::to_string(*number);
        return std::get<std::string>(value);
    }

    struct Write {
        std::string name;
        PropertyValue value;
        PropertyValue fallback;
    };
    std::vector<std::pair<std::string, PropertyValue>> entries;  // what is stored, in order
    std::vector<std::string> reads;                              // names asked for, in order
    std::vector<Write> writes;  // every call, those left out included
    bool asText = false;
    std::string failingName;  // reading or writing it raises 57

  private:
    std::vector<std::pair<std::string, PropertyValue>>::iterator find(std::string_view name) {
        return std::find_if(entries.begin(), entries.end(),
                            [&](const auto& entry) { return entry.first == name; });
    }
};

// Runs one queued script for each modal form, as the person before it, and closes a form that the
// script leaves open. A form without a script is closed at once.
class ScriptedModalLoop : public ModalLoop {
  public:
    void run(Form& form) override {
        formsShown.push_back(form.name());
        if (!scripts.empty()) {
            const auto script = std::move(scripts.front());
            scripts.pop_front();
            script(form);
        }
        form.Hide();
    }

    std::deque<std::function<void(Form&)>> scripts;
    std::vector<std::string> formsShown;
};

// All of them together.
struct FakeSurroundings {
    RecordingMessageBox messages;
    CancelledFileDialog fileDialog;
    MapRegistry registry;
    FakeDataSources dataSources;
    FakeDatabase database;
    MemoryTextFiles textFiles;
    FixedClock clock;
    RecordingPropertyChangeSink changes;
    FakeSite site;
    ScriptedModalLoop modalLoop;

    Surroundings all() {
        return {messages, fileDialog, registry, dataSources, database, textFiles, clock, changes};
    }
};

}  // namespace headerdtc::testing
