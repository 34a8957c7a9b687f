# Copies data/host into the build tree as <build>/host, so the programs run on
# the bundled settings and definitions with nothing installed.
file(GLOB_RECURSE ORL_HOST_FILES CONFIGURE_DEPENDS
     RELATIVE ${CMAKE_SOURCE_DIR}/data/host ${CMAKE_SOURCE_DIR}/data/host/*)
set(ORL_STAGED_HOST_FILES "")
foreach(rel IN LISTS ORL_HOST_FILES)
  set(out ${ORL_HOST_DIR}/${rel})
  add_custom_command(OUTPUT "${out}"
    COMMAND ${CMAKE_COMMAND} -E copy "${CMAKE_SOURCE_DIR}/data/host/${rel}" "${out}"
    DEPENDS "${CMAKE_SOURCE_DIR}/data/host/${rel}" VERBATIM)
  list(APPEND ORL_STAGED_HOST_FILES "${out}")
endforeach()
add_custom_target(stage_host ALL DEPENDS ${ORL_STAGED_HOST_FILES})
