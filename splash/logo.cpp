// Updating the boot logo through the image manager library.

#include <dlfcn.h>

#include <cstdio>

#include "platform/bmpmngr.h"
#include "splash/splash.h"
#include "util/owners.h"

namespace {

constexpr char kLibrary[] = "/usr/lib/libbmpmngr.so";
constexpr char kLogoImage[] = "bmp.splash";

static_assert(sizeof(ImageManagerTable) == 9 * sizeof(void*));

using InitEnv = decltype(&bmp_manager_init_env);
using UniqueLibrary = UniqueHandle<void*, nullptr, dlclose>;

}  // namespace

int UpdateSplashLogo(unsigned int value1, unsigned int value2) {
    // Unloaded on every way out, after the message.
    const UniqueLibrary library(dlopen(kLibrary, RTLD_NOW));
    if (!library) {
        printf("dlopen failed: %m\n");
        return -1;
    }
    const auto init_env = reinterpret_cast<InitEnv>(dlsym(library.Get(), BMP_MANAGER_ENTRY_POINT));
    if (init_env == nullptr) {
        printf("bmp_manager_init_env not defined or exported in %s\n", kLibrary);
        return -2;
    }
    ImageManagerTable table = {};
    const int init_result = init_env(&table);
    if (init_result != 0) {
        printf("bmp_manager_init_env failed %d\n", init_result);
        return -3;
    }
    if (table.update(kLogoImage, value1, value2) == 0) {
        puts("update bmp  LOGO ok");
    } else {
        puts("failed to update bmp");
    }
    return 0;
}
