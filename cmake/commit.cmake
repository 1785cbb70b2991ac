# Sets TAVREL_COMMIT to the first 12 digits of the commit of this source tree, or to nothing where it isn't
# known. In a source archive, git has written the commit into commit.txt. In a clone, git is asked for it,
# and the build is configured again when it changes. Git is told the folder of the clone, because without
# one of its own it would answer for a repository that contains this tree.
set(TAVREL_COMMIT)
cmake_path(GET CMAKE_CURRENT_LIST_DIR PARENT_PATH root)
file(STRINGS ${CMAKE_CURRENT_LIST_DIR}/commit.txt commit)
if(NOT commit MATCHES "^[0-9a-f]+$" AND EXISTS ${root}/.git)
  execute_process(COMMAND git --git-dir=.git rev-parse HEAD --git-path logs/HEAD
    WORKING_DIRECTORY ${root} OUTPUT_VARIABLE answer ERROR_QUIET)
  if(answer MATCHES "^([0-9a-f]+)\n([^\n]+)\n$")
    set(commit ${CMAKE_MATCH_1})
    cmake_path(SET log ${CMAKE_MATCH_2})
    cmake_path(ABSOLUTE_PATH log BASE_DIRECTORY ${root})
    if(EXISTS ${log})  # git can be told to keep none
      set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${log})
    endif()
  endif()
endif()
if(commit MATCHES "^[0-9a-f]+$")
  string(SUBSTRING ${commit} 0 12 TAVREL_COMMIT)
endif()
