# The Debian package (scripts/package): everything the install rules put under
# the prefix, with dependencies found from the program's shared libraries plus
# the Arial-metric fonts that the window is designed in.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME korvane)
set(CPACK_PACKAGE_VENDOR "The Korvane developers")
set(CPACK_PACKAGE_CONTACT "The Korvane developers <korvane@users.noreply.github.com>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "merges the detail levels of a 3-D object's KOB files")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE https://github.com/korvane/korvane)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "merges the detail levels of a 3-D object's KOB files
 Korvane takes the KOB file of an object's high-detail model (LOD 0) and, if
 wanted, the one of its low-detail model (LOD 1), lets the author set the
 texture map name, a ColorKey and the AutoLOD transition points, and writes
 one new KOB file that holds both.")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS fonts-liberation2)
# View Help hands the page to the desktop's browser through xdg-open.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils, qt6-wayland")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
