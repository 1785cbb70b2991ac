# Makes the page of the report a constant of tavkit: one HTML file, with the style and the scripts in
# it and their hashes in its Content-Security-Policy. Runs again when one of them changes. Needs no
# program, so that it works when cross-compiling.

# Reads a file with LF as line end, however it was checked out: browsers hash what they have parsed.
function(read_page_file name result)
  set(path ${CMAKE_CURRENT_SOURCE_DIR}/report/${name})
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${path})
  file(READ ${path} text)
  string(REPLACE "\r\n" "\n" text "${text}")
  set(${result} "${text}" PARENT_SCOPE)
endfunction()

# Sets `result` to the SHA-256 of a text in base 64, as a source of a Content-Security-Policy.
function(hash_source text result)
  set(digits "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/")
  string(SHA256 hash "${text}")
  set(base64 "")
  foreach(start RANGE 0 60 6)  # three bytes at a time; the last group lacks one
    string(SUBSTRING "${hash}0000" ${start} 6 group)
    foreach(shift 18 12 6 0)
      math(EXPR digit "(0x${group} >> ${shift}) & 63")
      string(SUBSTRING ${digits} ${digit} 1 digit)
      string(APPEND base64 ${digit})
    endforeach()
  endforeach()
  string(SUBSTRING ${base64} 0 43 base64)
  set(${result} "'sha256-${base64}='" PARENT_SCOPE)
endfunction()

# Joins modules into one: in the order of their imports, without the words that connect them.
function(join_modules result)
  set(joined "")
  foreach(name IN LISTS ARGN)
    read_page_file(${name} text)
    string(REGEX REPLACE "(^|\n)import [^;]*;" "" text "${text}")
    string(REGEX REPLACE "(^|\n)export " "\\1" text "${text}")
    string(APPEND joined "${text}")
  endforeach()
  set(${result} "${joined}" PARENT_SCOPE)
endfunction()

function(replace_once text old new result)
  string(FIND "${text}" "${old}" place)
  if(place EQUAL -1)
    message(FATAL_ERROR "report.html lacks ${old}")
  endif()
  string(REPLACE "${old}" "${new}" text "${text}")
  set(${result} "${text}" PARENT_SCOPE)
endfunction()

# Writes `file`, the source of the constants, from the given modules.
function(embed_page file)
  read_page_file(report.html page)
  read_page_file(report.css style)
  join_modules(script ${ARGN})
  hash_source("${style}" style_source)
  hash_source("${script}" script_source)
  replace_once("${page}" "style-src 'self'" "style-src ${style_source}" page)
  replace_once("${page}" "script-src 'self'" "script-src ${script_source}" page)
  replace_once("${page}" [[<link rel="stylesheet" href="report.css" />]]
    "<style>${style}</style>" page)
  replace_once("${page}" [[<script type="module" src="report.js"></script>]]
    "<script type=\"module\">${script}</script>" page)
  string(FIND "${page}" "<!-- data -->" place)
  string(SUBSTRING "${page}" 0 ${place} page_start)
  string(SUBSTRING "${page}" ${place} -1 page_end)
  configure_file(report/page.cpp.in ${file} @ONLY)
endfunction()
