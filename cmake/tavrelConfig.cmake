# The package tavrel: the programs tavrel::tavrel and tavrel::tavkit, the header for games as the
# target tavrel::bank, and tavrel_add_bank.
include("${CMAKE_CURRENT_LIST_DIR}/tavrelTargets.cmake")
include("${CMAKE_CURRENT_LIST_DIR}/tavrel_add_bank.cmake")
