// UpdateSplashLogo, with the stand-in image manager.

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <string>
#include <vector>

#include "splash/splash.h"
#include "tests/support/captured_stream.h"
#include "tests/support/open_descriptors.h"

namespace {

constexpr char kImageManager[] = IMAGE_MANAGER;
constexpr char kOtherLibrary[] = OTHER_LIBRARY;  // without the entry point

using Lines = std::vector<std::string>;

// While it lives, another library is loaded than the one that is asked for.
class FakeLoader {
public:
    explicit FakeLoader(const char* library) : library_(library) { active_ = this; }
    ~FakeLoader() { active_ = nullptr; }
    FakeLoader(const FakeLoader&) = delete;
    FakeLoader& operator=(const FakeLoader&) = delete;

    static FakeLoader* active() { return active_; }
    const char* library() const { return library_; }

    Lines calls;

private:
    const char* library_;  // nullptr: none can be loaded
    inline static FakeLoader* active_ = nullptr;
};

const Lines kLoadedAndUnloaded = {"dlopen /usr/lib/libbmpmngr.so 2", "dlclose"};

// The settings of the image manager, and what it notes down.
class UpdateSplashLogoTest : public KeepsDescriptors {
protected:
    UpdateSplashLogoTest() {
        SetResults("0", "0");
        const std::string path = "/proc/self/fd/" + std::to_string(notes_fd_);
        setenv("ORVATOOL_BMPMNGR_NOTES", path.c_str(), 1);
    }
    ~UpdateSplashLogoTest() override { close(notes_fd_); }

    static void SetResults(const char* init, const char* update) {
        setenv("ORVATOOL_BMPMNGR_INIT", init, 1);
        setenv("ORVATOOL_BMPMNGR_UPDATE", update, 1);
    }

    std::string Notes() const {
        char text[1000] = {};
        EXPECT_GE(pread(notes_fd_, text, sizeof text - 1, 0), 0);
        return text;
    }

    int notes_fd_ = memfd_create("notes", 0);
    CapturedStream output_{stdout};
};

bool IsLoaded(const char* library) {
    void* handle = dlopen(library, RTLD_NOW | RTLD_NOLOAD);
    if (handle != nullptr) {
        dlclose(handle);
    }
    return handle != nullptr;
}

}  // namespace

extern "C" {

void* __real_dlopen(const char* path, int flags);
void* __wrap_dlopen(const char* path, int flags) {
    FakeLoader* loader = FakeLoader::active();
    if (loader == nullptr) {
        return __real_dlopen(path, flags);
    }
    loader->calls.push_back(std::string("dlopen ") + path + ' ' + std::to_string(flags));
    if (loader->library() == nullptr) {
        errno = ENOENT;
        return nullptr;
    }
    return __real_dlopen(loader->library(), flags);
}

int __real_dlclose(void* handle);
int __wrap_dlclose(void* handle) {
    if (FakeLoader::active() != nullptr) {
        FakeLoader::active()->calls.push_back("dlclose");
    }
    return __real_dlclose(handle);
}
}

static_assert(RTLD_NOW == 2);

TEST_F(UpdateSplashLogoTest, UpdatesTheLogoThroughTheNinthEntry) {
    FakeLoader loader(kImageManager);
    EXPECT_EQ(UpdateSplashLogo(11, 22), 0);
    EXPECT_EQ(output_.Take(), "update bmp  LOGO ok\n");
    EXPECT_EQ(Notes(), "init with an empty table\nupdate bmp.splash 11 22\n");
    EXPECT_EQ(loader.calls, kLoadedAndUnloaded);
}

TEST_F(UpdateSplashLogoTest, PassesBothValuesThrough) {
    FakeLoader loader(kImageManager);
    UpdateSplashLogo(0, UINT_MAX);
    UpdateSplashLogo(0x80000000, 1);
    EXPECT_EQ(Notes(),
              "init with an empty table\nupdate bmp.splash 0 4294967295\n"
              "init with an empty table\nupdate bmp.splash 2147483648 1\n");
}

TEST_F(UpdateSplashLogoTest, ReturnsZeroAlsoWhenTheUpdateFails) {
    for (const char* result : {"1", "-1", "256", "-2147483648"}) {
        FakeLoader loader(kImageManager);
        SetResults("0", result);
        ASSERT_EQ(UpdateSplashLogo(11, 22), 0);
        ASSERT_EQ(output_.Take(), "failed to update bmp\n") << result;
        ASSERT_EQ(loader.calls, kLoadedAndUnloaded);
    }
}

TEST_F(UpdateSplashLogoTest, GivesMinusThreeWhenTheEntryPointFails) {
    for (const std::string result : {"1", "-1", "256", "-2147483648"}) {
        FakeLoader loader(kImageManager);
        SetResults(result.c_str(), "0");
        ASSERT_EQ(UpdateSplashLogo(11, 22), -3);
        ASSERT_EQ(output_.Take(), "bmp_manager_init_env failed " + result + "\n");
        ASSERT_EQ(loader.calls, kLoadedAndUnloaded);
    }
    EXPECT_EQ(Notes().find("update"), std::string::npos);
}

TEST_F(UpdateSplashLogoTest, GivesMinusTwoWithoutTheEntryPoint) {
    FakeLoader loader(kOtherLibrary);
    EXPECT_EQ(UpdateSplashLogo(11, 22), -2);
    EXPECT_EQ(output_.Take(),
              "bmp_manager_init_env not defined or exported in /usr/lib/libbmpmngr.so\n");
    EXPECT_EQ(loader.calls, kLoadedAndUnloaded);
}

TEST_F(UpdateSplashLogoTest, GivesMinusOneWithoutTheLibrary) {
    FakeLoader loader(nullptr);
    EXPECT_EQ(UpdateSplashLogo(11, 22), -1);
    EXPECT_EQ(output_.Take(), "dlopen failed: No such file or directory\n");
    EXPECT_EQ(loader.calls, Lines{"dlopen /usr/lib/libbmpmngr.so 2"});
}

TEST_F(UpdateSplashLogoTest, LeavesNoLibraryLoaded) {
    const struct {
        const char* library;
        const char* init;
        const char* update;
    } kCases[] = {{kImageManager, "0", "0"},
                  {kImageManager, "0", "1"},
                  {kImageManager, "1", "0"},
                  {kOtherLibrary, "0", "0"}};
    for (const auto& [library, init, update] : kCases) {
        SetResults(init, update);
        {
            FakeLoader loader(library);
            UpdateSplashLogo(11, 22);
        }
        EXPECT_FALSE(IsLoaded(library)) << library << ' ' << init << ' ' << update;
    }
}
