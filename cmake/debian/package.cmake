# The Debian package, apart from what every package has.

# The form that Debian prescribes: lines are indented, and an empty line is a full stop.
file(STRINGS LICENSE license)
list(TRANSFORM license PREPEND " ")
list(TRANSFORM license REPLACE "^ $" " .")
list(JOIN license "\n" license)
configure_file(cmake/debian/copyright.in copyright @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/copyright DESTINATION ${CMAKE_INSTALL_DOCDIR})

set(CPACK_PACKAGE_CONTACT "The tavrel maintainers <tavrel@localhost>")
set(CPACK_PACKAGE_DESCRIPTION
"Packs the sounds of a game into one bank file and writes a C header that
names each of them. Includes tavkit, which lists, checks, compares and
extracts banks, and the header with which games read them.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION devel)
# No dependencies: the programs are linked statically.
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/finish.cmake)
set(CPACK_TAVREL_STRIP ${CMAKE_STRIP})
set(CPACK_POST_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/repack.cmake)
