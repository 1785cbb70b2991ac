# Sets `bank` and `header` to the names of the files that a script makes. A build must know them before
# there is a tavkit that could read the script.
function(tavrel_read_bank_name script bank header)
  if(NOT EXISTS "${script}")
    message(FATAL_ERROR "There is no script ${script}")
  endif()
  file(READ "${script}" text)
  string(REGEX REPLACE ";[^\r\n]*" "" text "${text}")
  string(TOLOWER "${text}" lower)
  string(REGEX REPLACE "(^|[ \t\r\n])scriptend([ \t\r\n].*)?$" "" lower "${lower}")
  string(REGEX MATCH "^(.*[ \t\r\n])?bankfilename[ \t\r\n]+" before "${lower}")  # the last one counts
  string(LENGTH "${before}" start)
  string(SUBSTRING "${text}" ${start} -1 rest)
  string(REGEX MATCH "^[^ \t\r\n]+" name "${rest}")
  if(start EQUAL 0 OR name STREQUAL "")
    message(FATAL_ERROR "${script} has no BankFileName")
  endif()
  if(name MATCHES "[/\\]")
    message(FATAL_ERROR "${script}: the bank's name ${name} has a folder in it")
  endif()
  set(${bank} "${name}" PARENT_SCOPE)
  string(REGEX REPLACE "\\.[^.]?[^.]?[^.]?$" "" stem "${name}")  # longer extensions are kept
  set(${header} "${stem}.h" PARENT_SCOPE)
endfunction()
