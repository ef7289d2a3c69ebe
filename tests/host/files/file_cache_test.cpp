#include "host/files/file_cache.h"

#include "host/files/file_error.h"
#include "support/prologue.h"

#include <atomic>

namespace headerdtc::file_cache_test {

TEST(FileCache, ParsesAgainOnlyWhenTheFileChanged) {
    TempFolder folder;
    const auto file = folder.write("numbers", "1");
    std::atomic<int> parsed{0};
    FileCache<int> cache(file, [&](const std::string& name, std::string_view bytes) {
        ++parsed;
        if (bytes == "bad") throw FileError(name, 1, 2, "is bad");
        return std::stoi(std::string(bytes));
    });

    const auto first = cache.current();
    EXPECT_EQ(*first, 1);
    EXPECT_EQ(cache.current(), first) << "read again while its stamp is young, but not parsed";
    std::this_thread::sleep_for(std::chrono::milliseconds(2600));
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread)
        threads.emplace_back([&] { EXPECT_EQ(cache.current(), first); });
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(parsed, 1);

    folder.write("numbers", "bad");
    EXPECT_EQ(errorOf<FileError>([&] { cache.current(); }), file.string() + ":1:2: is bad");
    EXPECT_THROW(cache.current(), FileError);
    EXPECT_EQ(parsed, 2) << "a failure is kept like a value";
    std::filesystem::remove(file);
    EXPECT_THROW(cache.current(), SystemFileError);
    folder.write("numbers", "4");
    EXPECT_EQ(*cache.current(), 4);
    EXPECT_EQ(*first, 1);
}

// All these changes fall into a few ticks of the file system's clock, and none changes the size.
TEST(FileCache, MissesNoChangeWithinOneTickOfTheClock) {
    TempFolder folder;
    const auto file = folder.write("text", "000");
    FileCache<std::string> cache(
        file, [](const std::string&, std::string_view bytes) { return std::string(bytes); });
    for (int number = 100; number < 400; ++number) {
        std::fstream(file, std::ios::in | std::ios::out) << number;
        ASSERT_EQ(*cache.current(), std::to_string(number));
    }
}

TEST(WholeFile, ReadsFilesAndRefusesWhatIsNone) {
    TempFolder folder;
    std::string bytes(100'000, '\0');
    bytes += "\r\n\xFF";
    const auto file = folder.write("page.asp", bytes);
    const auto whole = readWholeFile(file);
    EXPECT_EQ(whole.bytes, bytes);
    EXPECT_EQ(whole.stamp, FileStamp::of(file));
    EXPECT_EQ(readWholeFile(folder.write("empty", "")).bytes, "");

    EXPECT_EQ(errorOf<SystemFileError>([&] { readWholeFile(folder / "missing"); }),
              (folder / "missing").string() + ": cannot be read: No such file or directory");
    EXPECT_EQ(FileStamp::of(folder / "missing"), FileStamp());
    EXPECT_THROW(readWholeFile(folder.path()), SystemFileError);
    EXPECT_THROW(readWholeFile("/dev/zero"), FileError);
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_THROW(readWholeFile(folder / "pipe"), FileError);
}

}  // namespace headerdtc::file_cache_test
