# What `cmake --install` and `cpack` put in place: the tool, its man page, the documents, the
# example, and a CMake package that offers the tool as the imported program tavrel::tavrel.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

install(TARGETS tavrel EXPORT tavrel)
install(FILES docs/tavrel.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES README.md CHANGELOG.md CONTRIBUTING.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR} FILES_MATCHING PATTERN *.md)
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DOCDIR})

# The tool makes the same banks on every host, so the width of pointers doesn't matter.
set(package_directory ${CMAKE_INSTALL_LIBDIR}/cmake/tavrel)
write_basic_package_version_file(
  ${PROJECT_BINARY_DIR}/tavrelConfigVersion.cmake COMPATIBILITY SameMajorVersion ARCH_INDEPENDENT)
install(FILES ${PROJECT_BINARY_DIR}/tavrelConfigVersion.cmake DESTINATION ${package_directory})
install(EXPORT tavrel NAMESPACE tavrel:: FILE tavrelConfig.cmake DESTINATION ${package_directory})

# The tool is linked statically, so the Debian package depends on nothing.
set(CPACK_GENERATOR DEB)
if(WIN32)
  set(CPACK_GENERATOR ZIP)
endif()
set(CPACK_PACKAGE_CONTACT "The tavrel maintainers")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION devel)
include(CPack)
