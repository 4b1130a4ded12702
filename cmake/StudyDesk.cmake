# Shared compile settings and helpers for every StudyDesk target.

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wcast-qual)
# The program reads single-byte files: every conversion between bytes and text must say which code page.
add_compile_definitions(QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY
                        QT_NO_URL_CAST_FROM_STRING QT_USE_QSTRINGBUILDER)

if(STUDYDESK_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
  add_link_options(-fsanitize=address,undefined)
endif()

# studydesk_library(NAME SOURCES ... DEPENDS ...): one library per subsystem folder.
function(studydesk_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${ARG_DEPENDS})
endfunction()

# studydesk_test(NAME SOURCES ... DEPENDS ...): one QTest executable registered with CTest.
# Tests run offscreen and never touch a sound card or printer.
function(studydesk_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE Qt6::Test ${ARG_DEPENDS})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests ${PROJECT_SOURCE_DIR}/src)
  target_compile_definitions(${name} PRIVATE
    STUDYDESK_SOURCE_DIR="${PROJECT_SOURCE_DIR}"
    STUDYDESK_BINARY_DIR="${PROJECT_BINARY_DIR}")
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_LOGGING_RULES=qt.multimedia*=false"
    TIMEOUT 240)
endfunction()

# studydesk_bench(NAME SOURCES ... DEPENDS ...): a benchmark program that prints its figures;
# the `bench` target builds and runs them all. Benchmarks never assert on time.
function(studydesk_bench name)
  cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_DEPENDS})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/src)
  target_compile_definitions(${name} PRIVATE STUDYDESK_SOURCE_DIR="${PROJECT_SOURCE_DIR}"
                                             STUDYDESK_BINARY_DIR="${PROJECT_BINARY_DIR}")
  set_property(GLOBAL APPEND PROPERTY STUDYDESK_BENCHES ${name})
endfunction()
