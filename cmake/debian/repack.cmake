# cpack runs this after it has made the Debian package: replaces the installed size, in which cpack counts
# folders with the lengths that the file system happens to give them, by one after Debian's own rule.
find_program(DPKG_DEB dpkg-deb)
if(NOT DPKG_DEB)
  return()
endif()
set(folder ${CPACK_TEMPORARY_DIRECTORY}.unpacked)
execute_process(COMMAND ${DPKG_DEB} --raw-extract ${CPACK_PACKAGE_FILES} ${folder}
  COMMAND_ERROR_IS_FATAL ANY)
file(GLOB_RECURSE entries LIST_DIRECTORIES true ${folder}/usr/*)
set(kibibytes 0)
foreach(entry ${entries})
  set(bytes 1024)  # of a folder
  if(NOT IS_DIRECTORY ${entry})
    file(SIZE ${entry} bytes)
  endif()
  math(EXPR kibibytes "${kibibytes} + (${bytes} + 1023) / 1024")
endforeach()
file(READ ${folder}/DEBIAN/control control)
string(REGEX REPLACE "Installed-Size: [0-9]+" "Installed-Size: ${kibibytes}" control "${control}")
file(WRITE ${folder}/DEBIAN/control "${control}")
execute_process(
  COMMAND ${DPKG_DEB} --build --root-owner-group -Zgzip ${folder} ${CPACK_PACKAGE_FILES}
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(REMOVE_RECURSE ${folder})
