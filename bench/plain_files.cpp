// plain_files read|rewrite FOLDER: the least that any program has to do that reads all files below
// a folder, or rewrites them durably (a new file beside, flushed, renamed, its folder flushed).
// Files are done side by side, flushed in groups, as generating does it.

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const std::string& what) {
    std::perror(what.c_str());
    std::exit(1);
}

std::string readFile(const fs::path& path) {
    const int file = open(path.c_str(), O_RDONLY);
    if (file < 0) fail(path);
    std::string bytes(fs::file_size(path), '\0');
    if (read(file, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) fail(path);
    close(file);
    return bytes;
}

struct Group {
    struct File {
        int descriptor;
        fs::path temporary, path;
    };
    std::vector<File> files;

    void add(const fs::path& path, const std::string& bytes) {
        const fs::path temporary = path.string() + ".new";
        const int file = open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        if (file < 0) fail(temporary);
        if (write(file, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()))
            fail(temporary);
        sync_file_range(file, 0, 0, SYNC_FILE_RANGE_WRITE);
        files.push_back({file, temporary, path});
    }

    void finish() {
        for (const File& file : files)
            if (fdatasync(file.descriptor) != 0) fail(file.temporary);
        for (const File& file : files) {
            close(file.descriptor);
            fs::rename(file.temporary, file.path);
        }
        if (!files.empty()) {
            const int folder = open(files.front().path.parent_path().c_str(), O_RDONLY);
            fsync(folder);
            close(folder);
        }
        files.clear();
    }
};

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) return std::fputs("usage: plain_files read|rewrite FOLDER\n", stderr), 2;
    const bool rewrite = std::string(argv[1]) == "rewrite";
    std::vector<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(argv[2]))
        if (entry.is_regular_file()) files.push_back(entry.path());

    std::atomic<std::size_t> next = 0, total = 0;
    const auto work = [&] {
        Group group;
        for (std::size_t i = next++; i < files.size(); i = next++) {
            const std::string bytes = readFile(files[i]);
            total += bytes.size();
            if (!rewrite) continue;
            group.add(files[i], bytes);
            if (group.files.size() == 128) group.finish();
        }
        group.finish();
    };
    std::vector<std::jthread> threads;
    for (unsigned i = 0; i < std::thread::hardware_concurrency(); ++i)
        threads.emplace_back(work);
    threads.clear();
    std::printf("%zu files, %zu bytes\n", files.size(), total.load());
}
