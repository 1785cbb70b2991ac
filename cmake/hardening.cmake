# Makes faults harder to exploit, because the programs parse files from anywhere. Each option is used
# where the compiler or the linker has it. A build with sanitizers uses none of them: sanitizers check
# more, and can't be linked statically.
#
# Sets TAVREL_STATIC to the option that links a program statically, if the host has one.
include(CheckCXXCompilerFlag)
include(CheckLinkerFlag)

set(TAVREL_STATIC)
if(TAVREL_SANITIZE)
  return()
endif()

# Also for the linker, because MinGW has the functions of the stack protector in a separate library.
foreach(option -fstack-protector-strong -fcf-protection)
  string(MAKE_C_IDENTIFIER TAVREL_HAS${option} known)
  check_cxx_compiler_flag(${option} ${known})
  if(${known})
    add_compile_options(${option})
    add_link_options(${option})
  endif()
endforeach()

# Checks the bounds of buffers in calls to libc, in optimised code only. Some compilers predefine it.
add_compile_options(
  "$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")

if(WIN32)
  # Load at random 64-bit addresses and never execute data. Neither GCC 12 nor its linker has Control
  # Flow Guard. Code for Windows is always position-independent.
  set(link_options LINKER:--high-entropy-va LINKER:--dynamicbase LINKER:--nxcompat)
  set(static_options -static)
else()
  # Load at random addresses, never execute the stack, and make the tables of addresses read-only
  # before main runs. Not -fPIC, which inlines less than -fPIE.
  add_compile_options(-fPIE)
  set(CMAKE_REQUIRED_FLAGS -fPIE)
  set(link_options LINKER:-z,relro LINKER:-z,now LINKER:-z,noexecstack)
  set(static_options -static-pie -static)
endif()

foreach(option IN LISTS link_options)
  string(MAKE_C_IDENTIFIER TAVREL_HAS_${option} known)
  check_linker_flag(CXX ${option} ${known})
  if(${known})
    add_link_options(${option})
  endif()
endforeach()

foreach(option IN LISTS static_options)
  string(MAKE_C_IDENTIFIER TAVREL_HAS${option} known)
  check_linker_flag(CXX ${option} ${known})
  if(${known})
    set(TAVREL_STATIC ${option})
    break()
  endif()
endforeach()
unset(CMAKE_REQUIRED_FLAGS)
