# Builds for this host with clang++ and libc++, its standard library. Libraries in C++ that are built
# for another one don't fit, as if they were for another host: CMake cross-builds where
# CMAKE_SYSTEM_NAME is set.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR ${CMAKE_HOST_SYSTEM_PROCESSOR})
set(CMAKE_DISABLE_FIND_PACKAGE_GTest TRUE)

set(CMAKE_C_COMPILER clang)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_CXX_FLAGS_INIT -stdlib=libc++)
set(CMAKE_CXX_STANDARD_LIBRARIES -lc++abi) # a static link doesn't find it by itself
