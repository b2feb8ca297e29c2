SUMMARY = "A terminal's maintenance tool and utility library"
DESCRIPTION = "orvatool carries a terminal's diagnostic output off on a USB stick; liborvautil \
has its utility functions for other programs."
LICENSE = "MIT"
LIC_FILES_CHKSUM = "file://LICENSE;md5=59133b5e0f7b0e076c44a4c67d0907e5"

# The sources are the tree that this layer is in.
inherit cmake externalsrc python3native
EXTERNALSRC = "${THISDIR}/../../../.."
EXTERNALSRC_BUILD = "${WORKDIR}/build"

# Distributions widen off_t and time_t for every recipe. The terminal's programs pass the narrow
# ones, so the library has them, and its headers refuse other callers.
GLIBC_64BIT_TIME_FLAGS = ""
CFLAGS:append = " -U_FILE_OFFSET_BITS -U_TIME_BITS"
CXXFLAGS:append = " -U_FILE_OFFSET_BITS -U_TIME_BITS"

# A stand-in for libtroption.so, the option store that the terminal's firmware brings.
PACKAGECONFIG ??= ""
PACKAGECONFIG[standins] = "-DORVATOOL_INSTALL_STANDINS=ON,-DORVATOOL_INSTALL_STANDINS=OFF"

PACKAGES =+ "liborvautil ${PN}-standins"
FILES:liborvautil = "${libdir}/liborvautil.so.*"
FILES:${PN}-standins = "${libdir}/libtroption.so"
RDEPENDS:${PN}-dev = "liborvautil (= ${EXTENDPKGV})"
RRECOMMENDS:${PN} = "${@bb.utils.contains('PACKAGECONFIG', 'standins', '${PN}-standins', '', d)}"

# The option store is the firmware's and has no version; and the narrow types, which are looked for,
# are those of the terminal's programs.
INSANE_SKIP:${PN} = "file-rdeps 32bit-time"
INSANE_SKIP:${PN}-standins = "dev-so"
INSANE_SKIP:liborvautil = "32bit-time"
