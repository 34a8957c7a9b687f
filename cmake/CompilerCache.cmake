# Compiles through ccache when it is installed, so that a rebuild after a small
# change, or a CI run in a fresh clone, compiles only what changed.
option(ORL_CCACHE "Compile through ccache when it is installed" ON)
find_program(ORL_CCACHE_PROGRAM ccache)

# A launcher given on the command line is the caller's choice and stays.
if(ORL_CCACHE AND ORL_CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # CI clones into a new folder for every run, so a result must be found again
  # from another folder: paths under the source root are hashed relative to it,
  # and the working folder stays out of the hash (an object taken from another
  # clone names that clone's folder in its debug information). The precompiled
  # headers are new in every clone; their own hashes guard them.
  set(CMAKE_CXX_COMPILER_LAUNCHER
      ${CMAKE_COMMAND} -E env
      CCACHE_BASEDIR=${CMAKE_SOURCE_DIR}
      CCACHE_NOHASHDIR=true
      CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
      ${ORL_CCACHE_PROGRAM})
endif()
