################################################################################
#
# orvatool
#
################################################################################

ORVATOOL_VERSION = 1.0.0
ORVATOOL_SITE = $(BR2_EXTERNAL_ORVATOOL_PATH)/../..
ORVATOOL_SITE_METHOD = local
ORVATOOL_OVERRIDE_SRCDIR_RSYNC_EXCLUSIONS = --exclude=/build
ORVATOOL_LICENSE = MIT
ORVATOOL_LICENSE_FILES = LICENSE
ORVATOOL_INSTALL_STAGING = YES

# Buildroot widens off_t for every package. The terminal's programs pass the
# narrow one, so the library has it, and its headers refuse other callers.
ORVATOOL_NARROW = -U_FILE_OFFSET_BITS -U_TIME_BITS

ORVATOOL_CONF_OPTS = \
	-DCMAKE_C_FLAGS="$(TARGET_CFLAGS) $(ORVATOOL_NARROW)" \
	-DCMAKE_CXX_FLAGS="$(TARGET_CXXFLAGS) $(ORVATOOL_NARROW)" \
	-DORVATOOL_INSTALL_STANDINS=$(if $(BR2_PACKAGE_ORVATOOL_STANDINS),ON,OFF)

$(eval $(cmake-package))
