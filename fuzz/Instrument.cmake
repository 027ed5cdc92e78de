# Included by the top-level CMakeLists.txt when CADERNIA_FUZZ is on, before
# any library: every library of the tree is built with libFuzzer's coverage
# and with AddressSanitizer and UndefinedBehaviorSanitizer; the targets under
# fuzz/ add libFuzzer's main. Undefined behaviour stops the run like a crash.
if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  message(FATAL_ERROR "CADERNIA_FUZZ needs clang (-DCMAKE_CXX_COMPILER=clang++) and libFuzzer (libfuzzer-14-dev)")
endif()
add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined
                    -fno-omit-frame-pointer)
add_link_options(-fsanitize=address,undefined)
