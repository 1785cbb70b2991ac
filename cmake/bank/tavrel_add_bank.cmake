# A bank as a part of a CMake build, with tavkit build. Included by find_package(tavrel), and by this
# project where it is a part of another.
#
#   tavrel_add_bank(sounds SCRIPT assets/sounds.txt [WORKING_DIRECTORY dir] [OUTPUT_DIRECTORY dir]
#                   [PREFIX prefix] [NO_CHECK])
#   target_link_libraries(game PRIVATE sounds)   # to include the bank's header
#   $<TARGET_PROPERTY:sounds,BANK_FILE>          # to install or copy the bank
#
# The documentation is docs/builds.md.
include_guard(GLOBAL)
cmake_policy(VERSION 3.20)  # in the functions too: depfiles with absolute names (CMP0116)
include("${CMAKE_CURRENT_LIST_DIR}/read_bank_name.cmake")

set(TAVKIT_EXECUTABLE TAVKIT_EXECUTABLE-NOTFOUND CACHE FILEPATH
  "The tavkit that packs banks, instead of tavrel::tavkit")
mark_as_advanced(TAVKIT_EXECUTABLE)

function(tavrel_add_bank name)
  cmake_parse_arguments(
    PARSE_ARGV 1 bank "NO_CHECK" "SCRIPT;WORKING_DIRECTORY;OUTPUT_DIRECTORY;PREFIX" "")
  if(NOT DEFINED bank_SCRIPT OR DEFINED bank_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "tavrel_add_bank(${name} SCRIPT script [WORKING_DIRECTORY dir]"
      " [OUTPUT_DIRECTORY dir] [PREFIX prefix] [NO_CHECK])")
  endif()

  cmake_path(ABSOLUTE_PATH bank_SCRIPT NORMALIZE)
  cmake_path(GET bank_SCRIPT PARENT_PATH folder)
  if(DEFINED bank_WORKING_DIRECTORY)
    cmake_path(ABSOLUTE_PATH bank_WORKING_DIRECTORY NORMALIZE OUTPUT_VARIABLE folder)
  endif()
  set(output "${CMAKE_CURRENT_BINARY_DIR}")
  if(DEFINED bank_OUTPUT_DIRECTORY)
    set(output "${bank_OUTPUT_DIRECTORY}")
    # What a generator expression stands for isn't known yet.
    if(NOT output MATCHES "^\\$<")
      cmake_path(ABSOLUTE_PATH output BASE_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}" NORMALIZE)
    elseif(CMAKE_VERSION VERSION_GREATER_EQUAL 3.24)
      set(output "$<PATH:ABSOLUTE_PATH,NORMALIZE,${output},${CMAKE_CURRENT_BINARY_DIR}>")
    endif()
  endif()
  _tavrel_find_tavkit(tavkit)
  tavrel_read_bank_name("${bank_SCRIPT}" bank_name header_name)
  set(scripts "${CMAKE_CURRENT_FUNCTION_LIST_DIR}")

  set(options -C "${folder}" --bank-dir "${output}" --header-dir "${output}")
  if(DEFINED bank_PREFIX)
    list(APPEND options --prefix "${bank_PREFIX}")
  endif()
  if(bank_NO_CHECK)
    list(APPEND options --no-check)
  endif()
  # Makefiles don't repeat a command whose arguments have changed.
  set(arguments "${CMAKE_CURRENT_BINARY_DIR}/CMakeFiles/${name}.bank-arguments")
  file(CONFIGURE OUTPUT "${arguments}" CONTENT "${options};${tavkit}\n" @ONLY)
  # Touched when the script names another bank, so that CMake runs again.
  set(renamed "${CMAKE_CURRENT_BINARY_DIR}/CMakeFiles/${name}.bank-renamed")
  file(CONFIGURE OUTPUT "${renamed}" CONTENT "" @ONLY)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${renamed}")

  # The stamp is the one output: the bank and the header keep their times as long as they are equal.
  set(stamp "${output}/${name}.stamp")
  set(by_products BYPRODUCTS "${output}/${bank_name}" "${output}/${header_name}")
  add_custom_command(
    OUTPUT "${stamp}"
    ${by_products}
    COMMAND "${CMAKE_COMMAND}" "-DFOLDER=${output}" "-DSCRIPT=${bank_SCRIPT}" "-DBANK=${bank_name}"
      "-DRENAMED=${renamed}" -P "${scripts}/before_packing.cmake"
    COMMAND "${tavkit}" build -q ${options} --depfile "${output}/${name}.d" --stamp "${stamp}"
      -- "${bank_SCRIPT}"
    DEPENDS "${bank_SCRIPT}" "${arguments}"
    DEPFILE "${output}/${name}.d"
    COMMENT "Packing ${bank_name}"
    VERBATIM)
  add_library(${name} INTERFACE "${stamp}")
  target_include_directories(${name} INTERFACE "${output}")
  set_target_properties(${name} PROPERTIES
    BANK_FILE "${output}/${bank_name}" HEADER_FILE "${output}/${header_name}")
  if(CMAKE_GENERATOR MATCHES "Makefiles")
    # make doesn't see that a by-product is missing.
    add_custom_target(${name}_outputs
      COMMAND "${CMAKE_COMMAND}" "-DSTAMP=${stamp}" "-DBANK=${output}/${bank_name}"
        "-DHEADER=${output}/${header_name}" -P "${scripts}/remove_stale_stamp.cmake"
      VERBATIM)
    add_dependencies(${name} ${name}_outputs)
    # A command that depends on a by-product waits for the target that lists it, but not for a command
    # that does.
    add_custom_target(${name}_files COMMAND "${CMAKE_COMMAND}" -E true ${by_products} VERBATIM)
    add_dependencies(${name}_files ${name})
  endif()
endfunction()

# Sets `result` to what packs banks on this host: a program or a target.
function(_tavrel_find_tavkit result)
  if(NOT TAVKIT_EXECUTABLE AND CMAKE_CROSSCOMPILING)
    find_program(TAVKIT_EXECUTABLE tavkit
      PATHS ENV PATH NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)  # no prefix: it is for the target
  endif()
  set(tavkit tavrel::tavkit)
  if(TAVKIT_EXECUTABLE)
    set(tavkit "${TAVKIT_EXECUTABLE}")
  elseif(NOT TARGET tavrel::tavkit OR CMAKE_CROSSCOMPILING)
    message(FATAL_ERROR "Packing a bank needs a tavkit that runs on this host. Set TAVKIT_EXECUTABLE.")
  endif()
  set(${result} "${tavkit}" PARENT_SCOPE)
endfunction()
