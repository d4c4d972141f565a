# The Debian package (scripts/package): everything the install rules put under
# the prefix, with dependencies found from the program's shared libraries plus
# the Arial-metric fonts that the window is designed in.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME korvane)
set(CPACK_PACKAGE_VENDOR "The Korvane developers")
set(CPACK_PACKAGE_CONTACT "The Korvane developers <korvane@users.noreply.github.com>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "desktop tool that merges the detail levels of 3-D object KOB files")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE https://github.com/korvane/korvane)
# The long description alone: CPack puts the summary above it as the synopsis
# and indents each line by one blank; an empty line separates paragraphs.
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "Korvane is a small desktop utility for authors of 3-D objects described by
KOB files. It opens the KOB file of an object's high-detail model (LOD 0)
and, if wanted, the one of its low-detail model (LOD 1), lets the author set
the texture map name, an optional ColorKey and the two AutoLOD transition
points, and saves one new KOB file that holds both models.

KOB files open in Korvane from the file manager, or when dropped on its
window. The package also holds korvane-cli, which does the same merges,
checks sources and runs batches of merges from a terminal.")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS fonts-liberation2)
# View Help hands the page to the desktop's browser through xdg-open.
# The KOB file type and the desktop entry's place as its application are
# registered by the triggers of shared-mime-info and desktop-file-utils.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils, qt6-wayland, shared-mime-info")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
