#pragma once

#include "cli/path_list.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace headerdtc::cli {

// Exit status of the command.
enum ExitStatus : int {
    Done = 0,
    CheckFoundSomething = 1,
    WrongUsage = 2,   // wrong usage or configuration
    PageNotDone = 3,  // at least one page could not be done
    Interrupted = 130,
};

// Options that every command takes.
struct CommonOptions {
    std::string configuration;  // path of a headerdtc.toml; empty: looked for beside the page
    std::optional<std::filesystem::path> only() const {
        if (configuration.empty()) return std::nullopt;
        return configuration;
    }
};

struct GenerateOptions {
    PathList paths;
    bool print = false;
    bool check = false;
    bool diff = false;  // with check: what would change, in the place of the list
    bool json = false;
    bool force = false;
    bool quiet = false;
    int jobs = 0;  // 0: one for each core
};

struct NewOptions {
    std::string page;
    bool into = false;
    std::optional<int> line;  // 1-based; the control goes before it, else behind the directive
};

struct ShowOptions {
    std::string page;
    bool json = false;
};

struct AutomateOptions {
    std::string page;
    std::string control;  // ID; empty: the page's only or first control
};

struct EditOptions {
    std::vector<std::string> pages;
};

// Each runs one command: results on standard output, everything else on standard error. Returns
// the exit status.
int generate(const CommonOptions& common, const GenerateOptions& options);
int newControl(const CommonOptions& common, const NewOptions& options);
int show(const CommonOptions& common, const ShowOptions& options);
int automate(const CommonOptions& common, const AutomateOptions& options);
int edit(const CommonOptions& common, const EditOptions& options);

// Runs a command's body; what it throws becomes a line on standard error and an exit status.
int guarded(const std::function<ExitStatus()>& body);

}  // namespace headerdtc::cli
