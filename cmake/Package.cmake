# `make package`: a Debian package of what `cmake --install` lays out, made
# by CPack. The libraries it needs come from dpkg-shlibdeps; what the
# binaries do not link but the program uses at run time is named here: Qt's
# Spanish catalogue, the platform plugins of a desktop session, the SVG icon
# engine, and xdg-utils, through which a written PDF is opened.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME cadernia)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "Cadernia")
set(CPACK_PACKAGE_CONTACT "Cadernia <contacto@cadernia.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "class book for teachers")
set(CPACK_PACKAGE_DESCRIPTION "Cadernia keeps, for each school year, a teacher's students, groups,\n\
subjects, evaluation periods, tasks and their marks, the weights per task\n\
type, evaluation and final marks, recoveries and rubrics; it shows how each\n\
student stands, counts a group's marks by grade band, and prints lists,\n\
marks and report cards. Its screens are in Spanish.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION education)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://cadernia.example")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-translations-l10n, qt6-qpa-plugins, libqt6svg6, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS OFF)
include(CPack)
