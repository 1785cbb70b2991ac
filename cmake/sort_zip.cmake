# cpack runs this after it has packed a zip: makes it again with sorted names, because cpack takes files in
# the order in which the file system happens to list them.
cmake_path(GET CPACK_TEMPORARY_DIRECTORY PARENT_PATH folder)
file(GLOB_RECURSE files RELATIVE ${folder} ${CPACK_TEMPORARY_DIRECTORY}/*)
execute_process(COMMAND ${CMAKE_COMMAND} -E tar cf ${CPACK_PACKAGE_FILES} --format=zip ${files}
  WORKING_DIRECTORY ${folder} COMMAND_ERROR_IS_FATAL ANY)
