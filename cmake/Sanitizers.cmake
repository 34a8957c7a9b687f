# The sanitizer configurations. They build what their tests need and no more
# (no GUI, no benchmarks), at -O1 -g1: enough optimisation for the tests to run
# briskly, enough debug information for a report to name its lines.
option(ORL_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)
option(ORL_SANITIZE_THREAD "Build with ThreadSanitizer; only the suites that test threads" OFF)

if(ORL_SANITIZE AND ORL_SANITIZE_THREAD)
  message(FATAL_ERROR "ThreadSanitizer and AddressSanitizer cannot share a build; use two build folders")
endif()

if(ORL_SANITIZE)
  set(ORL_SANITIZER_FLAGS -fsanitize=address,undefined -fno-sanitize-recover=all)
elseif(ORL_SANITIZE_THREAD)
  set(ORL_SANITIZER_FLAGS -fsanitize=thread)
endif()

if(ORL_SANITIZER_FLAGS)
  # Compile options follow the build type's flags, so these levels win.
  add_compile_options(${ORL_SANITIZER_FLAGS} -fno-omit-frame-pointer -O1 -g1)
  add_link_options(${ORL_SANITIZER_FLAGS})
  set(ORL_PARTS_DEFAULT OFF)
else()
  set(ORL_PARTS_DEFAULT ON)
endif()

option(ORL_BUILD_GUI "Build the Qt widgets, the workbench program and their tests" ${ORL_PARTS_DEFAULT})
option(ORL_BUILD_BENCH "Build the benchmarks in bench/" ${ORL_PARTS_DEFAULT})
