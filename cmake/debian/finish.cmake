# cpack runs this on the installed files before it packs them: adds the changelog in Debian's form and the
# overrides for lintian, compresses what Debian compresses, and removes the compiler's name from programs.
set(root ${CPACK_TEMPORARY_INSTALL_DIRECTORY}${CPACK_PACKAGING_INSTALL_PREFIX})
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)  # SOURCE_DATE_EPOCH, if it is set
set(changelog ${root}/share/doc/tavrel/changelog)
configure_file(${CMAKE_CURRENT_LIST_DIR}/changelog.in ${changelog}
  @ONLY NO_SOURCE_PERMISSIONS)
configure_file(${CMAKE_CURRENT_LIST_DIR}/lintian-overrides ${root}/share/lintian/overrides/tavrel
  COPYONLY NO_SOURCE_PERMISSIONS)
file(GLOB pages ${root}/share/man/man1/*.1)
execute_process(COMMAND gzip -9n ${changelog} ${pages} COMMAND_ERROR_IS_FATAL ANY)
file(GLOB programs ${root}/bin/*)
execute_process(
  COMMAND ${CPACK_TAVREL_STRIP} --remove-section=.comment --remove-section=.note ${programs}
  COMMAND_ERROR_IS_FATAL ANY)
