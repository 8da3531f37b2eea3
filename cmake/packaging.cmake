# Installing Quorvane as a desktop program, and its Debian package (`make package`):
# /usr/bin/quorvane, the sample course in /usr/share/quorvane/, the menu entry, the icon, the
# AppStream metainfo and the manual page. The version is the project's.

set(QV_APP_ID org.quorvane.Quorvane)
set(QV_PACKAGING ${CMAKE_CURRENT_SOURCE_DIR}/packaging)

# In a build tree the program finds the sample course through this file beside it, which names
# the course's folder relative to the build folder (so the two can move together).
file(RELATIVE_PATH QV_SAMPLE_RELATIVE ${CMAKE_CURRENT_BINARY_DIR} ${CMAKE_CURRENT_SOURCE_DIR}/data/demo)
file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/sample-course-folder.txt CONTENT "${QV_SAMPLE_RELATIVE}\n")

# The files that carry the version get it here; the icon at 256 pixels is drawn from the scalable
# one; the manual page and the changelog are compressed as Debian wants them.
set(QV_PACKAGED ${CMAKE_CURRENT_BINARY_DIR}/packaging)
configure_file(${QV_PACKAGING}/${QV_APP_ID}.metainfo.xml.in ${QV_PACKAGED}/${QV_APP_ID}.metainfo.xml @ONLY)
configure_file(${QV_PACKAGING}/quorvane.1.in ${QV_PACKAGED}/quorvane.1 @ONLY)
configure_file(${QV_PACKAGING}/changelog.in ${QV_PACKAGED}/changelog @ONLY)
find_program(QV_RSVG_CONVERT rsvg-convert REQUIRED)
find_program(QV_GZIP gzip REQUIRED)
add_custom_command(OUTPUT ${QV_PACKAGED}/${QV_APP_ID}.png
    COMMAND ${QV_RSVG_CONVERT} -w 256 -h 256 -o ${QV_PACKAGED}/${QV_APP_ID}.png ${QV_PACKAGING}/${QV_APP_ID}.svg
    DEPENDS ${QV_PACKAGING}/${QV_APP_ID}.svg VERBATIM)
foreach(page quorvane.1 changelog)
    add_custom_command(OUTPUT ${QV_PACKAGED}/${page}.gz
        COMMAND ${QV_GZIP} -9nkf ${QV_PACKAGED}/${page}
        DEPENDS ${QV_PACKAGED}/${page} VERBATIM)
endforeach()
add_custom_target(quorvane_package_files ALL
    DEPENDS ${QV_PACKAGED}/${QV_APP_ID}.png ${QV_PACKAGED}/quorvane.1.gz ${QV_PACKAGED}/changelog.gz)

include(GNUInstallDirs)
install(TARGETS quorvane RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR}/data/demo/ DESTINATION ${CMAKE_INSTALL_DATADIR}/quorvane
    PATTERN .gitattributes EXCLUDE)
install(FILES ${QV_PACKAGING}/${QV_APP_ID}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${QV_PACKAGED}/${QV_APP_ID}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${QV_PACKAGING}/${QV_APP_ID}.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES ${QV_PACKAGED}/${QV_APP_ID}.png DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/256x256/apps)
install(FILES ${QV_PACKAGED}/quorvane.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${QV_PACKAGING}/copyright ${QV_PACKAGED}/changelog.gz DESTINATION ${CMAKE_INSTALL_DOCDIR})

# The menu entry and the metainfo are checked by the tools the desktops use.
find_program(QV_DESKTOP_FILE_VALIDATE desktop-file-validate)
find_program(QV_APPSTREAMCLI appstreamcli)
if(QV_DESKTOP_FILE_VALIDATE AND QV_APPSTREAMCLI)
    add_test(NAME desktop_entry_valid COMMAND ${QV_DESKTOP_FILE_VALIDATE} ${QV_PACKAGING}/${QV_APP_ID}.desktop)
    add_test(NAME metainfo_valid
        COMMAND ${QV_APPSTREAMCLI} validate --no-net ${QV_PACKAGED}/${QV_APP_ID}.metainfo.xml)
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quorvane)
set(CPACK_PACKAGE_VENDOR "The Quorvane maintainers")
set(CPACK_PACKAGE_CONTACT "The Quorvane maintainers <maintainers@quorvane.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "vocabulary tutor with recorded words, flash cards and tests")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION education)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://www.quorvane.example")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# CPack puts the summary on the first line and each line of this under it.
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Quorvane helps a student learn the words of a language. Pick a language and
one of its word lists, hear every word and its translation from real
recordings, and sort the words into an unknown and a known list that are kept
from one run to the next.
.
Flash cards play the words by themselves, a list can be compiled into MP3
files for a portable player, and timed tests check what was learned. A sample
course comes with the program.")
include(CPack)
