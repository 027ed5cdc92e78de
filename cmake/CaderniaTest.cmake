# cadernia_add_test(NAME SOURCES a.cpp b.cpp LIBS lib1 lib2 [NO_SUPPORT])
# One QtTest executable, registered with CTest and run headless. Every test
# links the shared test support, except those below it (NO_SUPPORT).
function(cadernia_add_test name)
  cmake_parse_arguments(T "NO_SUPPORT" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${T_SOURCES})
  target_link_libraries(${name} PRIVATE Qt6::Test ${T_LIBS})
  if(NOT T_NO_SUPPORT)
    target_link_libraries(${name} PRIVATE cadernia_testsupport)
  endif()
  target_compile_definitions(${name} PRIVATE
    CADERNIA_SOURCE_DIR="${PROJECT_SOURCE_DIR}"
    CADERNIA_BIN_DIR="${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8"
    TIMEOUT 600)
endfunction()
