# viz_test(NAME LABEL logic|gui|gl|app [DEPENDS target...] [SOURCES file...] [INCLUDES dir...])
#
# One test program: every .cpp of the calling folder, plus SOURCES. `logic` needs no display and gets GoogleTest's
# own main; the other labels get the main of tests/support, which sets Qt up, keeps data in a temporary folder and
# turns Qt warnings into failures.
function(viz_test name label)
    cmake_parse_arguments(ARG "" "" "DEPENDS;SOURCES;INCLUDES" ${ARGN})
    file(GLOB files CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
    add_executable(${name} ${files} ${ARG_SOURCES})
    target_include_directories(${name} PRIVATE ${ARG_INCLUDES})
    target_link_libraries(${name} PRIVATE ${ARG_DEPENDS} GTest::gmock)
    if(label STREQUAL logic)
        target_link_libraries(${name} PRIVATE viz_test_support_core GTest::gtest_main)
    else()
        target_link_libraries(${name} PRIVATE viz_test_support)
    endif()
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
    add_test(NAME ${name} COMMAND ${name} --gtest_output=json:${CMAKE_BINARY_DIR}/tests/${name}.json)
    set_tests_properties(${name} PROPERTIES LABELS ${label} TIMEOUT 600
        ENVIRONMENT "LP_NUM_THREADS=1;LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/support/lsan.supp:print_suppressions=0;VIZ_SHARED_DATA=${CMAKE_SOURCE_DIR}/../shared/data")
    if(NOT label STREQUAL logic)
        # One mouse and one active window a display: programs beside each other would take them from one another.
        set_tests_properties(${name} PROPERTIES RESOURCE_LOCK display)
    endif()
endfunction()
