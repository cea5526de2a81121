# Installation and the Debian package (`make package`, CPack's DEB generator).
#
# The package lays the program out as a Linux program:
#   /usr/bin/zarvek, /usr/bin/zarvek-cli
#   /usr/share/zarvek/         the data of build/bin: SECTION.DB, the language
#                              files, help/, the examples, the default Zarvek.INI
#   /usr/share/applications/   the desktop entry; /usr/share/mime/packages/ the
#                              type of problem files (*.zvk); the icon in hicolor
#   /usr/share/man/man1/       zarvek(1), zarvek-cli(1)
# The programs find the data as ../share/zarvek beside their own folder, so an
# unpacked package works wherever it lies; the user's own files go to
# ~/.local/share/zarvek (foundation/Startup.h).
#
# The package's dependencies are those of the libraries the programs actually
# link (dpkg-shlibdeps), with the Qt platform plugins and the fonts the
# drawings are laid out for.
if(NOT ZARVEK_WITH_QT)
  return()
endif()

include(GNUInstallDirs)
set(zvk_pkg_src ${PROJECT_SOURCE_DIR}/packaging)
set(zvk_pkg_bin ${CMAKE_BINARY_DIR}/packaging)
set(zvk_share ${CMAKE_INSTALL_DATADIR}/zarvek)

# ---- files made for the package: compressed manual pages and changelog -------
set(zvk_pkg_outputs)
foreach(page zarvek.1 zarvek-cli.1)
  add_custom_command(OUTPUT ${zvk_pkg_bin}/${page}.gz
    COMMAND ${CMAKE_COMMAND} -E make_directory ${zvk_pkg_bin}
    COMMAND gzip -9n -c ${zvk_pkg_src}/man/${page} > ${zvk_pkg_bin}/${page}.gz
    DEPENDS ${zvk_pkg_src}/man/${page} VERBATIM)
  list(APPEND zvk_pkg_outputs ${zvk_pkg_bin}/${page}.gz)
endforeach()
add_custom_command(OUTPUT ${zvk_pkg_bin}/changelog.gz
  COMMAND ${CMAKE_COMMAND} -E make_directory ${zvk_pkg_bin}
  COMMAND gzip -9n -c ${zvk_pkg_src}/changelog > ${zvk_pkg_bin}/changelog.gz
  DEPENDS ${zvk_pkg_src}/changelog VERBATIM)
list(APPEND zvk_pkg_outputs ${zvk_pkg_bin}/changelog.gz)
add_custom_target(zarvek_packaging ALL DEPENDS ${zvk_pkg_outputs})

# ---- install rules -----------------------------------------------------------
install(TARGETS Zarvek zarvek-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
# build/bin keeps the program's own name; installed, it is a command like any other
install(CODE "file(RENAME \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/Zarvek\"
                          \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/zarvek\")")

install(FILES
  ${ZARVEK_BIN_DIR}/Zarvek.INI ${ZARVEK_BIN_DIR}/SECTION.DB
  ${ZARVEK_BIN_DIR}/ZARVEK_UK.MSG ${ZARVEK_BIN_DIR}/ZARVEK_FR.MSG
  ${ZARVEK_BIN_DIR}/EXAMPLE.ZVK ${ZARVEK_BIN_DIR}/EXAMPLE.DAT
  DESTINATION ${zvk_share})
install(DIRECTORY ${ZARVEK_BIN_DIR}/help DESTINATION ${zvk_share})

install(FILES ${zvk_pkg_src}/zarvek.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${zvk_pkg_src}/zarvek-mime.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages
  RENAME zarvek.xml)
install(FILES ${zvk_pkg_src}/icons/zarvek.svg
  DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
foreach(size 16 32 48 64 128 256)
  install(FILES ${zvk_pkg_src}/icons/zarvek-${size}.png
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps RENAME zarvek.png)
endforeach()
install(FILES ${zvk_pkg_bin}/zarvek.1.gz ${zvk_pkg_bin}/zarvek-cli.1.gz
  DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${zvk_pkg_src}/copyright ${zvk_pkg_bin}/changelog.gz
  DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/zarvek)

# ---- the Debian package ------------------------------------------------------
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zarvek)
set(CPACK_PACKAGE_VENDOR "The Zarvek developers")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "critical moment of lateral-torsional buckling of steel beams")
# the summary is the synopsis; CPack indents the lines below it (an empty one
# separates paragraphs)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "Zarvek computes the elastic critical moment Mcr of lateral-torsional
buckling of one straight steel beam by finite elements: a section from a
catalogue of rolled sections, by dimensions or by properties, lateral
restraints at the ends and along the span, and in-plane loads with their
heights above the shear centre. It shows the internal forces, the buckling
mode and a three-dimensional view, and writes a report.

The package holds the program, its command-line solver zarvek-cli, the
section catalogue, English and French texts and help, and an example.")
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "Zarvek developers <zarvek@example.org>")
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# not found by dpkg-shlibdeps: Qt loads its platform plugins at run time
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins, fonts-liberation2")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_STRIP_FILES ON)
# CPack installs what has been built: `make package` builds the programs and
# their data first, and leaves the tests and benchmarks alone (by default the
# install step would build everything)
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)
include(CPack)

# ---- the package checked as a user meets it ----------------------------------
# (in the normal build only: a package of instrumented programs is no package)
if(NOT ZARVEK_SANITIZE AND NOT ZARVEK_FUZZ)
  add_test(NAME package_install
    COMMAND bash ${PROJECT_SOURCE_DIR}/tests/package/test_package.sh ${CMAKE_BINARY_DIR})
  set_tests_properties(package_install PROPERTIES SKIP_RETURN_CODE 77 TIMEOUT 600)
endif()
