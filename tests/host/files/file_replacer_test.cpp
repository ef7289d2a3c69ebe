#include "host/files/file_replacer.h"

#include "host/files/file_error.h"
#include "support/prologue.h"

#include <csignal>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/xattr.h>

namespace headerdtc::file_replacer_test {

struct stat statusOf(const fs::path& file) {
    struct stat status {};
    EXPECT_EQ(lstat(file.c_str(), &status), 0) << file;
    return status;
}

void replaceNow(const fs::path& file, std::string_view bytes) {
    replaceWholeFile(file, bytes, FileStamp::of(file));
}

class FileReplacerTest : public Test {
  protected:
    TempFolder folder;
    const fs::path page = folder.write("page.asp", "old");
    FileReplacer replacer;
};

TEST_F(FileReplacerTest, ReplacesAGroupAtCommitAndNotBefore) {
    const auto other = folder.write("sub/other.asp", "old");
    replacer.replace(page, "new", FileStamp::of(page));
    replacer.replace(other, "", FileStamp::of(other));
    replacer.create(folder / "third.asp", "made");
    EXPECT_EQ(replacer.waiting(), 3U);
    EXPECT_EQ(folder.read("page.asp"), "old");
    EXPECT_FALSE(fs::exists(folder / "third.asp"));

    for (const auto& outcome : replacer.commit())
        EXPECT_EQ(outcome.problem, "") << outcome.path;
    EXPECT_EQ(folder.read("page.asp"), "new");
    EXPECT_EQ(folder.read("sub/other.asp"), "");
    EXPECT_EQ(folder.read("third.asp"), "made");
    EXPECT_THAT(folder.names(), ElementsAre("page.asp", "sub", "third.asp"));
    EXPECT_TRUE(replacer.commit().empty());

    // What was not committed is discarded.
    FileReplacer().replace(page, "newer", FileStamp::of(page));
    FileReplacer().create(folder / "made.asp", "new");
    EXPECT_EQ(folder.read("page.asp"), "new");
    EXPECT_THAT(folder.names(), ElementsAre("page.asp", "sub", "third.asp"));
}

TEST_F(FileReplacerTest, AGroupMayBeLargerThanTheNumberOfOpenFiles) {
    rlimit limit{};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &limit), 0);
    const auto few = rlimit{100, limit.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &few), 0);
    for (int number = 0; number < 120; ++number) {
        const auto file = folder.write(std::to_string(number), "old");
        replacer.replace(file, "new", FileStamp::of(file));
    }
    const auto outcomes = replacer.commit();
    setrlimit(RLIMIT_NOFILE, &limit);
    ASSERT_EQ(outcomes.size(), 120U);
    EXPECT_EQ(outcomes[7].path, folder / "7");
    for (int number = 0; number < 120; ++number)
        ASSERT_EQ(folder.read(std::to_string(number)), "new");
}

TEST_F(FileReplacerTest, ModeOwnerAndAttributesAreKept) {
    if (geteuid() == 0) {
        ASSERT_EQ(chown(page.c_str(), 1234, 4321), 0);
    }
    ASSERT_EQ(chmod(page.c_str(), 02640), 0);
    const bool hasAttributes = setxattr(page.c_str(), "user.origin", "here", 4, 0) == 0;
    const auto before = statusOf(page);
    replaceNow(page, "new");
    const auto after = statusOf(page);
    EXPECT_NE(after.st_ino, before.st_ino);
    EXPECT_EQ(std::tie(after.st_mode, after.st_uid, after.st_gid),
              std::tie(before.st_mode, before.st_uid, before.st_gid));
    char value[8] = {};
    EXPECT_TRUE(!hasAttributes || getxattr(page.c_str(), "user.origin", value, 8) == 4);
}

TEST_F(FileReplacerTest, RefusesWhatCannotBeReplacedWithoutLoss) {
    fs::create_hard_link(page, folder / "second.asp");
    fs::create_symlink("nowhere", folder / "dangling.asp");
    EXPECT_THAT(errorOf<FileError>([&] { replaceNow(page, "new"); }), HasSubstr("hard links"));
    EXPECT_THROW(replaceNow(folder / "missing.asp", "new"), FileError);
    EXPECT_THROW(replaceNow(folder / "dangling.asp", "new"), FileError);
    EXPECT_THROW(replaceNow(folder.path(), "new"), FileError);
    EXPECT_THROW(replacer.create(page, "new"), FileError);
    EXPECT_THROW(replacer.create(folder / "dangling.asp", "new"), FileError);
    EXPECT_THROW(replacer.create(folder / "no/folder.asp", "new"), FileError);
    EXPECT_EQ(replacer.waiting(), 0U);
    EXPECT_EQ(folder.read("page.asp"), "old");
    EXPECT_THAT(folder.names(), ElementsAre("dangling.asp", "page.asp", "second.asp"));
}

TEST_F(FileReplacerTest, AFileThatAnotherWriterChangedIsNotOverwritten) {
    const auto stamp = FileStamp::of(page);
    const auto second = folder.write("second.asp", "old");
    const auto third = folder.write("third.asp", "old");
    replacer.replace(page, "ours", stamp);
    replacer.replace(second, "ours", FileStamp::of(second));
    replacer.replace(third, "ours", FileStamp::of(third));
    replacer.create(folder / "made.asp", "ours");
    // In the last moment: rewritten, removed, made.
    usleep(20'000);
    folder.write("page.asp", "xxx");
    fs::remove(third);
    folder.write("made.asp", "theirs");

    const auto outcomes = replacer.commit();
    ASSERT_EQ(outcomes.size(), 4U);
    EXPECT_THAT(outcomes[0].problem, HasSubstr("changed by someone else"));
    EXPECT_EQ(outcomes[1].problem, "");
    EXPECT_THAT(outcomes[2].problem, HasSubstr("changed by someone else"));
    EXPECT_THAT(outcomes[3].problem, HasSubstr("File exists"));
    EXPECT_THAT(errorOf<FileError>([&] { replaceWholeFile(page, "ours", stamp); }),
                HasSubstr("changed by someone else"));
    EXPECT_EQ(folder.read("page.asp"), "xxx");
    EXPECT_EQ(folder.read("second.asp"), "ours");
    EXPECT_EQ(folder.read("made.asp"), "theirs");
    EXPECT_THAT(folder.names(), ElementsAre("made.asp", "page.asp", "second.asp"));
}

// Within one tick of the file system's clock a change of the same size may leave the stamp as it
// is.
TEST_F(FileReplacerTest, AChangeThatLeavesTheStampIsSeenByItsBytes) {
    const auto read = readWholeFile(page);
    ASSERT_TRUE(read.stamp.digest) << "the file has just been written";
    const auto rewrite = [&](const char* bytes) {
        std::fstream(page, std::ios::in | std::ios::out) << bytes;
        auto stamp = FileStamp::of(page);
        stamp.digest = read.stamp.digest;
        return stamp;
    };
    EXPECT_THROW(replacer.replace(page, "ours", rewrite("new")), FileError);
    const auto unchanged = rewrite("old");
    replacer.replace(page, "ours", unchanged);
    EXPECT_EQ(replacer.commit().front().problem, "");
    EXPECT_EQ(folder.read("page.asp"), "ours");

    for (int number = 1000; number < 1100; ++number) {
        const auto before = readWholeFile(page);
        replacer.replace(page, "ours", before.stamp);
        std::fstream(page, std::ios::in | std::ios::out) << number;
        ASSERT_THAT(replacer.commit().front().problem, HasSubstr("changed by someone else"));
        ASSERT_EQ(folder.read("page.asp"), std::to_string(number));
    }
    EXPECT_THAT(folder.names(), ElementsAre("page.asp"));
}

// Both put a number into the file: the other counts, we keep the number that we read. A number that
// does not stay was overwritten by somebody who had not read it.
TEST_F(FileReplacerTest, NothingThatASecondWriterRenamesIntoPlaceIsLost) {
    folder.write("page.asp", "ours 0");
    const auto number = [this] {
        const std::string text = folder.read("page.asp");
        return text.substr(std::min(text.size(), text.find(' ')));
    };
    constexpr int Looks = 10'000;  // of a millisecond each: a machine may have other things to do
    const pid_t other = fork();
    if (other == 0) {
        for (int count = 0; count < 1000; ++count) {
            usleep(count % 5 * 200);
            const auto counted = " " + std::to_string(count);
            std::ofstream(folder / "aside", std::ios::binary) << "theirs" << counted;
            std::error_code failure;
            fs::rename(folder / "aside", page, failure);
            int looks = 0;
            while (number() != counted && ++looks < Looks)
                usleep(1000);
            if (failure || looks == Looks) _exit(1);
        }
        _exit(0);
    }
    int replaced = 0, refused = 0, status = 0;
    while (waitpid(other, &status, WNOHANG) == 0) {
        const auto read = readWholeFile(page);
        try {
            replaceWholeFile(page, "ours" + read.bytes.substr(read.bytes.find(' ')), read.stamp);
            ++replaced;
        } catch (const FileError&) {
            ++refused;
        }
    }
    EXPECT_EQ(status, 0) << "a change was lost";
    EXPECT_GT(replaced, 0);
    EXPECT_GT(refused, 0);
}

TEST_F(FileReplacerTest, WhatAKilledProcessLeftIsRemovedByTheNext) {
    const pid_t child = fork();
    if (child == 0) {
        replacer.replace(page, "half", FileStamp::of(page));
        raise(SIGKILL);
    }
    ASSERT_EQ(waitpid(child, nullptr, 0), child);
    EXPECT_EQ(folder.read("page.asp"), "old");
    ASSERT_EQ(folder.names().size(), 2U);
    const auto gone = "-" + std::to_string(child) + "-";
    EXPECT_THAT(folder.names()[0], HasSubstr(gone));

    // Not for the next to remove: names of others, of living processes, and those that a process
    // keeps locked which cannot be seen from here.
    const auto locked = folder.write(".headerdtc" + gone + "900.tmp", "");
    const int lock = open(locked.c_str(), O_RDONLY);
    ASSERT_EQ(flock(lock, LOCK_EX), 0);
    folder.write(".headerdtc-1-1.tmp", "");
    folder.write(".headerdtc" + gone + "x.tmp", "");
    replaceNow(page, "new");
    close(lock);
    EXPECT_EQ(folder.read("page.asp"), "new");
    EXPECT_THAT(folder.names(), ElementsAre(".headerdtc-1-1.tmp", locked.filename().string(),
                                            ".headerdtc" + gone + "x.tmp", "page.asp"));
}

// In a container every run may have the same id.
TEST_F(FileReplacerTest, WhatAKilledProcessOfTheSameIdLeftIsRemovedToo) {
    const auto stray = ".headerdtc-" + std::to_string(getpid()) + "-1.tmp";
    folder.write(stray, "half");
    replacer.replace(page, "new", FileStamp::of(page));
    EXPECT_EQ(folder.names().size(), 2U) << "the stray one is gone, the waiting one is not";
    replacer.commit();
    EXPECT_THAT(folder.names(), ElementsAre("page.asp"));
}

TEST_F(FileReplacerTest, NewFilesGetTheUsualMode) {
    const mode_t before = umask(027);
    replacer.create(folder / "made.asp", "");
    replacer.commit();
    umask(before);
    EXPECT_EQ(statusOf(folder / "made.asp").st_mode & 07777, 0640U);
}

}  // namespace headerdtc::file_replacer_test
