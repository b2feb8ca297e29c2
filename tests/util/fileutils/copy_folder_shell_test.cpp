// CopyFolder with the real shell and cp; sync is one of the test's own, which leaves a mark.

#include <cstdlib>
#include <string>

#include "tests/support/captured_stream.h"
#include "tests/util/fileutils/cursor_folder.h"

namespace {

class CopyFolderByShell : public CursorFolder {
protected:
    CopyFolderByShell() : path_(getenv("PATH")) {
        for (const char* name : {"bin", "src", "dest"}) {
            mkdir(Path(name).c_str(), 0755);
        }
        Write("bin/sync", "#!/bin/sh\necho synced >> " + Path("syncs") + "\n");
        chmod(Path("bin/sync").c_str(), 0755);
        setenv("PATH", (Path("bin") + ":" + path_).c_str(), 1);
    }
    ~CopyFolderByShell() override { setenv("PATH", path_.c_str(), 1); }

    int Copy(const std::string& dest) const {
        return CopyFolder(Path("src").c_str(), Path(dest).c_str(), nullptr);
    }

private:
    const std::string path_;
};

}  // namespace

TEST_F(CopyFolderByShell, CopiesFilesAndWholeFolders) {
    Write("src/1", "one");
    Write("src/2", "two");
    mkdir(Path("src/folder").c_str(), 0755);
    Write("src/folder/3", "three");
    Write("dest/1", "older");
    EXPECT_EQ(Copy("dest"), 3);
    EXPECT_EQ(Read("dest/1"), "one");
    EXPECT_EQ(Read("dest/2"), "two");
    EXPECT_EQ(Read("dest/folder/3"), "three");
    EXPECT_EQ(Read("syncs"), "synced\nsynced\nsynced\n");
}

TEST_F(CopyFolderByShell, TriesTheNextEntryAfterAFailure) {
    Write("src/1", "one");
    mkdir(Path("src/taken").c_str(), 0755);
    Write("dest/taken", "a file where the folder should go");
    CapturedStream errors(stderr);
    EXPECT_EQ(Copy("dest"), 1);
    EXPECT_NE(errors.Take(), "");  // cp's own complaint
    EXPECT_EQ(Read("dest/1"), "one");
    EXPECT_EQ(Read("syncs"), "synced\n");
}

TEST_F(CopyFolderByShell, DoesNotCountWhatItsCutPathMisses) {
    Write("src/" + std::string(100, 'n'), "x");
    Write("src/short", "x");
    CapturedStream errors(stderr);
    EXPECT_EQ(Copy("dest"), 1);
    EXPECT_EQ(AsSet(Names(Path("dest"))), (std::set<std::string>{".", "..", "short"}));
}

TEST_F(CopyFolderByShell, LetsTheShellInterpretNamesSourceAndDestination) {
    Write("src/1", "one");
    Write("src/$(echo 1)", "never copied");
    EXPECT_EQ(Copy("d*t"), 2);
    EXPECT_EQ(AsSet(Names(Path("dest"))), (std::set<std::string>{".", "..", "1"}));
    EXPECT_EQ(Read("dest/1"), "one");

    mkdir(Path("${HOME#$HOME}src").c_str(), 0755);  // which the shell reads as src
    Write("${HOME#$HOME}src/2", "never copied");
    Write("src/2", "two");
    EXPECT_EQ(CopyFolder(Path("${HOME#$HOME}src").c_str(), Path("dest").c_str(), nullptr), 1);
    EXPECT_EQ(Read("dest/2"), "two");
}
