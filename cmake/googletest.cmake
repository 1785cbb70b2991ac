# Provides GTest::gmock_main: from its package, or from Debian's sources for another host.
if(CMAKE_CROSSCOMPILING)
  add_subdirectory(/usr/src/googletest ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
else()
  find_package(GTest REQUIRED)
endif()
