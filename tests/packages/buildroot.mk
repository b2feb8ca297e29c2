# What Buildroot's own makefiles do with a package of CMake, as far as ours depends on it. Called
# with EXTERNAL, the external tree; OUTPUT, a folder; TOOLCHAIN, a toolchain file.
BR2_EXTERNAL_ORVATOOL_PATH = $(EXTERNAL)
TARGET_CFLAGS = -D_LARGEFILE_SOURCE -D_LARGEFILE64_SOURCE -D_FILE_OFFSET_BITS=64 -Os -g0
TARGET_CXXFLAGS = $(TARGET_CFLAGS)

define cmake-package
all:
	cmake -S $$(ORVATOOL_SITE) -B $(OUTPUT)/build -DCMAKE_TOOLCHAIN_FILE=$(TOOLCHAIN) \
	    -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX=/usr -DBUILD_SHARED_LIBS=ON \
	    -DCMAKE_INSTALL_RUNSTATEDIR=/run $$(ORVATOOL_CONF_OPTS)
	cmake --build $(OUTPUT)/build --parallel
	DESTDIR=$(OUTPUT)/target cmake --install $(OUTPUT)/build
endef

include $(EXTERNAL)/external.mk
