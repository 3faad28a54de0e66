# One way to declare what this project is made of: libraries, programs and tests.

# tvo_add_library(NAME SOURCES... [PUBLIC lib...] [PRIVATE lib...])
# A static library with include/ as its public face; without sources it is header-only. Others link
# it as tvo::NAME, so a misspelt name stops the configuration and not the linker.
function(tvo_add_library name)
    cmake_parse_arguments(arg "" "" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
    if(arg_SOURCES)
        add_library(${name} STATIC ${arg_SOURCES})
        target_include_directories(${name}
            PUBLIC ${CMAKE_CURRENT_SOURCE_DIR}/include
            PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/source)
        target_link_libraries(${name} PUBLIC ${arg_PUBLIC} PRIVATE ${arg_PRIVATE} tvo_options)
    else()
        add_library(${name} INTERFACE)
        target_include_directories(${name} INTERFACE ${CMAKE_CURRENT_SOURCE_DIR}/include)
        target_link_libraries(${name} INTERFACE ${arg_PUBLIC})
    endif()
    add_library(tvo::${name} ALIAS ${name})
endfunction()

# tvo_add_program(NAME SOURCES... LIBRARIES...)
# All programs of a build stand in its folder bin/.
function(tvo_add_program name)
    cmake_parse_arguments(arg "" "" "SOURCES;LIBRARIES" ${ARGN})
    add_executable(${name} ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} tvo_options)
    set_target_properties(${name} PROPERTIES
        RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
    install(TARGETS ${name} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endfunction()

# tvo_add_test(NAME LABEL unit|system|fuzz SOURCES... LIBRARIES... [MAIN lib] [TIMEOUT seconds]
#              [ENVIRONMENT NAME=VALUE...] [CONCURRENCY case...])
# GoogleTest cases, each a ctest entry under the label. GTest::gmock_main unless MAIN names another
# library (or "none": the sources bring their own main). The cases named after CONCURRENCY, with
# GoogleTest's wildcards, look for races and are worth being repeated: their label is
# LABEL_concurrency.
function(tvo_add_test name)
    if(NOT BUILD_TESTING)
        return()
    endif()
    cmake_parse_arguments(arg "" "LABEL;MAIN;TIMEOUT" "SOURCES;LIBRARIES;ENVIRONMENT;CONCURRENCY" ${ARGN})
    if(NOT arg_MAIN)
        set(arg_MAIN GTest::gmock_main)
    elseif(arg_MAIN STREQUAL "none")
        set(arg_MAIN GTest::gmock)
    endif()
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 60)
    endif()
    add_executable(${name} ${arg_SOURCES})
    target_include_directories(${name} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/source)
    target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} ${arg_MAIN} tvo_options)
    set(properties TIMEOUT ${arg_TIMEOUT})
    if(arg_ENVIRONMENT)
        list(APPEND properties ENVIRONMENT "${arg_ENVIRONMENT}")
    endif()
    set(others "*")
    if(arg_CONCURRENCY)
        list(JOIN arg_CONCURRENCY ":" concurrency)
        set(others "-${concurrency}")
        gtest_discover_tests(${name}
            TEST_FILTER "${concurrency}"
            TEST_LIST ${name}_concurrency
            PROPERTIES LABELS ${arg_LABEL}_concurrency ${properties}
            DISCOVERY_MODE PRE_TEST
            DISCOVERY_TIMEOUT 60)
    endif()
    gtest_discover_tests(${name}
        TEST_FILTER "${others}"
        PROPERTIES LABELS ${arg_LABEL} ${properties}
        DISCOVERY_MODE PRE_TEST
        DISCOVERY_TIMEOUT 60)
endfunction()
