#include "cli/baseline.h"

#include "cli/command.h"
#include "host/files/file_error.h"
#include "host/files/file_replacer.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>

namespace headerdtc::cli {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void failToUse(const std::string& file, const std::string& problem) {
    throw UsageError(file + ": " + problem + "; --update-baseline writes one");
}

bool isEntry(const Baseline::Entry& entry, const std::string& scope) {
    return entry.is_object() && entry.contains(scope) &&
           std::all_of(entry.begin(), entry.end(),
                       [](const auto& text) { return text.is_string(); });
}

std::string textOf(const Baseline::Entry& entry) {
    return entry.dump(-1, ' ', false, Baseline::Entry::error_handler_t::replace);
}

}  // namespace

void addBaselineOptions(CLI::App& command, BaselineOptions& options) {
    auto* file =
        command.add_option("--baseline", options.file, "leave out the findings that this file has")
            ->type_name(FileType);
    command
        .add_flag("--update-baseline", options.update,
                  "write what is found into that file, instead of showing it")
        ->needs(file);
}

Baseline::Baseline(const BaselineOptions& options, std::string scope)
    : options_(options), scope_(std::move(scope)) {
    if (!isUsed()) return;
    std::error_code ignored;
    if (options.update && !fs::exists(options.file, ignored)) return;
    std::string text;
    try {
        text = readWholeFile(options.file).bytes;
    } catch (const headerdtc::FileError& error) {
        failToUse(options.file, error.problem());
    }
    const Entry entries = Entry::parse(text, nullptr, false);
    if (!entries.is_array()) failToUse(options.file, "is no baseline");
    for (const Entry& entry : entries) {
        if (!isEntry(entry, scope_)) failToUse(options.file, "is no baseline of this command");
        ++entries_[textOf(entry)];
    }
}

std::string Baseline::nameOf(const std::string& page) const {
    const auto absolute = [](const fs::path& path) {
        return fs::absolute(path).lexically_normal();
    };
    return absolute(page).lexically_relative(absolute(options_.file).parent_path()).string();
}

bool Baseline::has(const Entry& finding) {
    if (!isUsed()) return false;
    const std::string text = textOf(finding);
    if (options_.update) {
        found_.insert(text);
        return true;
    }
    const auto entry = entries_.find(text);
    if (entry == entries_.end() || entry->second == 0) return false;
    --entry->second;
    return true;
}

bool Baseline::isLookedAt(const std::string& entry) const {
    const std::string scope = Entry::parse(entry)[scope_];
    if (scopes_.contains(scope)) return true;
    // Nobody will ever look at a page that is gone.
    std::error_code ignored;
    return scope_ == Page && !fs::exists(fs::path(options_.file).parent_path() / scope, ignored);
}

void Baseline::end(bool quiet) {
    if (!isUsed()) return;
    if (!options_.update) {
        std::size_t gone = 0;
        for (const auto& [entry, left] : entries_)
            gone += isLookedAt(entry) ? static_cast<std::size_t>(left) : 0;
        if (gone > 0 && !quiet)
            printLine(stderr, options_.file + ": " + counted(gone, "finding") +
                                  " not found any more; --update-baseline takes them out");
        return;
    }
    const std::size_t written = found_.size();
    for (const auto& [entry, times] : entries_) {
        for (int i = 0; i < times && !isLookedAt(entry); ++i)
            found_.insert(entry);
    }
    std::string text;
    for (const std::string& entry : found_)
        text += (text.empty() ? "[\n" : ",\n") + entry;
    text += text.empty() ? "[]\n" : "\n]\n";
    const fs::path file(options_.file);
    writeWholeFile(file, text, FileStamp::of(file));
    if (!quiet) printLine(stderr, options_.file + ": " + counted(written, "finding") + " written");
}

}  // namespace headerdtc::cli
