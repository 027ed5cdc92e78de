# cadernia_add_test(NAME SOURCES a.cpp b.cpp LIBS lib1 lib2)
# One QtTest executable, registered with CTest and run headless.
function(cadernia_add_test name)
  cmake_parse_arguments(T "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${T_SOURCES})
  target_link_libraries(${name} PRIVATE Qt6::Test ${T_LIBS})
  target_compile_definitions(${name} PRIVATE
    CADERNIA_SOURCE_DIR="${PROJECT_SOURCE_DIR}"
    CADERNIA_BIN_DIR="${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8"
    TIMEOUT 600)
endfunction()
