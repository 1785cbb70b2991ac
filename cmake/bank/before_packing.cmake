# Runs before a bank is packed. Makes the FOLDER of the outputs, and fails if the SCRIPT names another
# bank than BANK, for which the build was made: RENAMED is touched then, so that the next build runs
# CMake first.
include("${CMAKE_CURRENT_LIST_DIR}/read_bank_name.cmake")

file(MAKE_DIRECTORY "${FOLDER}")
tavrel_read_bank_name("${SCRIPT}" bank header)
if(NOT bank STREQUAL BANK)
  file(TOUCH "${RENAMED}")
  message(FATAL_ERROR "${SCRIPT} names another bank now: ${bank} instead of ${BANK}. Build again.")
endif()
