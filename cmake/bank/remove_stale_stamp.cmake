# Removes the STAMP of a bank whose file or header is missing, so that make packs it again.
if(NOT EXISTS "${BANK}" OR NOT EXISTS "${HEADER}")
  file(REMOVE "${STAMP}")
endif()
