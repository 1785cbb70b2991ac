# What `cmake --install` and `cpack` install: the tool, its man page, the documents, the example, the
# header for games with its pkg-config file, tavkit where it is built, with its man page, completions
# and schemas, and a CMake package, see tavrelConfig.cmake.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

install(TARGETS tavrel tavrel_bank EXPORT tavrel
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY runtime/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(FILES docs/tavrel.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES README.md CHANGELOG.md CONTRIBUTING.md LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR}
  FILES_MATCHING PATTERN *.md PATTERN *.1 PATTERN *.svg PATTERN *.png)
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DOCDIR})

if(TAVREL_KIT)
  install(TARGETS tavkit EXPORT tavrel)
  install(FILES docs/tavkit.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  install(FILES kit/completions/tavkit.bash RENAME tavkit
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
  install(FILES kit/completions/_tavkit DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions)
  install(DIRECTORY integrations DESTINATION ${CMAKE_INSTALL_DOCDIR})
  install(DIRECTORY kit/schemas DESTINATION ${CMAKE_INSTALL_DATADIR}/tavrel)
endif()

# The tool makes the same banks on every host, so the package fits every architecture.
set(package_directory ${CMAKE_INSTALL_LIBDIR}/cmake/tavrel)
write_basic_package_version_file(
  ${PROJECT_BINARY_DIR}/tavrelConfigVersion.cmake COMPATIBILITY SameMajorVersion ARCH_INDEPENDENT)
install(FILES ${PROJECT_BINARY_DIR}/tavrelConfigVersion.cmake cmake/tavrelConfig.cmake
  DESTINATION ${package_directory})
install(DIRECTORY cmake/bank/ DESTINATION ${package_directory})
install(EXPORT tavrel NAMESPACE tavrel:: FILE tavrelTargets.cmake DESTINATION ${package_directory})

configure_file(runtime/tavrel.pc.in tavrel.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/tavrel.pc DESTINATION ${CMAKE_INSTALL_DATADIR}/pkgconfig)

set(CPACK_GENERATOR ZIP)
if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
  set(CPACK_GENERATOR DEB)
  include(cmake/debian/package.cmake)
else()
  set(CPACK_POST_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/sort_zip.cmake)
endif()
set(CPACK_STRIP_FILES ON)
include(CPack)
