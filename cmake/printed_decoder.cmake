# Adds the decoder that docs/adpcm.md prints, in C99, to the sources of a target.
function(tavrel_add_printed_decoder target)
  set(decoder ${CMAKE_CURRENT_BINARY_DIR}/${target}_decoder.c)
  add_custom_command(
    OUTPUT ${decoder}
    COMMAND sed -n [[/^```c decode_adpcm.c$/,/^```$/{ /^```/d; p }]]
      ${PROJECT_SOURCE_DIR}/docs/adpcm.md > ${decoder}
    DEPENDS ${PROJECT_SOURCE_DIR}/docs/adpcm.md
    VERBATIM)
  target_sources(${target} PRIVATE ${decoder})
  set_target_properties(${target} PROPERTIES C_STANDARD 99 C_EXTENSIONS OFF)
endfunction()
