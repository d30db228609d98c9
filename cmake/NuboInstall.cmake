# SPDX-License-Identifier: GPL-3.0-or-later
# Install rules (`cmake --install <build> --prefix <prefix>`) and the Debian package
# (`cpack -G DEB` in the build folder, or `./nubo.sh package`).
#
#   bin/nubo, bin/nubo-cli
#   share/nubo/{Bitmap,Icons,Cursors}   the pictures each user's application folder starts from
#   share/applications/nubo.desktop     the menu entry, "Abrir con" for .xls and .mdb
#   share/metainfo/                     the AppStream description
#   share/icons/hicolor/NxN/apps/       the menu icon
#   share/doc/nubo/                     copyright and changelog
#   share/man/man1/                     nubo.1, nubo-cli.1
set(NUBO_APPSTREAM_ID io.github.nubo.Nubo)
set(NUBO_PACKAGING ${PROJECT_SOURCE_DIR}/packaging)

install(TARGETS nubo nubo-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/resources/ DESTINATION ${CMAKE_INSTALL_DATADIR}/nubo)
install(FILES ${NUBO_PACKAGING}/nubo.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${NUBO_PACKAGING}/${NUBO_APPSTREAM_ID}.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(DIRECTORY ${NUBO_PACKAGING}/icons/ DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor)

# Debian wants the changelog and manual pages compressed with gzip -9n (no name, no time, so
# the package is reproducible).
set(NUBO_GZIPPED)
foreach(file changelog nubo.1 nubo-cli.1)
    set(gz ${CMAKE_BINARY_DIR}/packaging/${file}.gz)
    add_custom_command(OUTPUT ${gz}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/packaging
        COMMAND gzip -9n -c ${NUBO_PACKAGING}/${file} > ${gz}
        DEPENDS ${NUBO_PACKAGING}/${file})
    list(APPEND NUBO_GZIPPED ${gz})
endforeach()
add_custom_target(nubo_packaging_docs ALL DEPENDS ${NUBO_GZIPPED})
install(FILES ${NUBO_PACKAGING}/copyright ${CMAKE_BINARY_DIR}/packaging/changelog.gz
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/nubo)
install(FILES ${CMAKE_BINARY_DIR}/packaging/nubo.1.gz ${CMAKE_BINARY_DIR}/packaging/nubo-cli.1.gz
        DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

set(NUBO_MAINTAINER "Nubo developers <maintainers@users.noreply.c-seed-dc963c4e.example>"
    CACHE STRING "The Debian package's maintainer")
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME nubo)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT ${NUBO_MAINTAINER})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "cataloguer of music files on CDs and disks")
set(CPACK_PACKAGE_DESCRIPTION "\
Nubo walks a folder or a whole CD for music files that match a mask and
lists them with their name, folder, group and format. The list can be
edited, sorted, played in the desktop's player and saved as an Excel 97
workbook (.xls) or an Access database (.mdb). The interface is in Spanish.
nubo-cli catalogues, converts and inspects from the command line.")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Qt loads its SQLite driver as a plugin, which shlibdeps cannot see; the library needs it.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6sql6-sqlite")
# The desktop opener and Qt's Spanish texts are optional; the program runs without them.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils, qt6-translations-l10n")
include(CPack)
