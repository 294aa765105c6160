# One folder = one library. A folder's headers are found by base name, and only by targets that link
# its target, so the link lists below src/ are the layer diagram.
#
#   ostrel_library(model SOURCES Monitor.cpp … PUBLIC Qt6::Core PRIVATE simdjson::simdjson
#                  [NO_HEADERS])
#
# With NO_HEADERS, the folder's headers aren't for those that link this target.
function(ostrel_library name)
    cmake_parse_arguments(ARG "NO_HEADERS" "" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
    add_library(ostrel_${name} STATIC ${ARG_SOURCES})
    add_library(ostrel::${name} ALIAS ostrel_${name})
    set_target_properties(ostrel_${name} PROPERTIES AUTOMOC ON)
    target_include_directories(ostrel_${name} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
    if(NOT ARG_NO_HEADERS)
        target_include_directories(ostrel_${name} INTERFACE ${CMAKE_CURRENT_SOURCE_DIR})
    endif()
    target_link_libraries(ostrel_${name} PUBLIC ${ARG_PUBLIC} PRIVATE ostrel_options ${ARG_PRIVATE})
    ostrel_use_precompiled(ostrel_${name} core)
endfunction()

# A GoogleTest program, each of whose tests is a CTest test and runs in a process of its own. A
# folder has one program, and another one for tests that need other properties, another main() or a
# program to themselves.
#
#   ostrel_test(ModelTests SOURCES MonitorTest.cpp … LIBRARIES ostrel::model [TIMEOUT seconds]
#               [LABELS …] [RUN_SERIAL] [WHOLE_STACKS] [FOREIGN_LEAKS])
#
# With RUN_SERIAL, each test runs alone: for tests that measure time. With WHOLE_STACKS,
# AddressSanitizer follows allocations through libraries without frame pointers, which is slow: for
# tests whose suppression in lsan.supp names a function of such a library. With FOREIGN_LEAKS, it
# doesn't look for leaks: for tests whose programs leak in plug-ins that are unloaded by then, which
# no suppression can name.
function(ostrel_test name)
    cmake_parse_arguments(ARG "RUN_SERIAL;WHOLE_STACKS;FOREIGN_LEAKS" "TIMEOUT" "SOURCES;LIBRARIES;LABELS" ${ARGN})
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 300)
    endif()
    set(properties TIMEOUT ${ARG_TIMEOUT} RUN_SERIAL ${ARG_RUN_SERIAL}
        # Tests start programs beside threads that may start more.
        ENVIRONMENT "TSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/cmake/tsan.supp:die_after_fork=0")
    if(ARG_WHOLE_STACKS)
        list(APPEND properties ENVIRONMENT_MODIFICATION "ASAN_OPTIONS=set:fast_unwind_on_malloc=0")
    endif()
    if(ARG_FOREIGN_LEAKS)
        list(APPEND properties ENVIRONMENT_MODIFICATION "ASAN_OPTIONS=set:detect_leaks=0")
    endif()
    # An empty list would vanish from the arguments and take the next property's name for its value.
    if(ARG_LABELS)
        list(APPEND properties LABELS "${ARG_LABELS}")
    endif()
    add_executable(${name} ${ARG_SOURCES})
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    target_link_libraries(${name} PRIVATE ostrel_options ${ARG_LIBRARIES} ostrel_test_main GTest::gmock GTest::gtest)
    if(ARG_LIBRARIES MATCHES "ostrel::(ui|app|tray|theme|gallery)|ostrel_view_test")
        ostrel_use_precompiled(${name} view_test)
    else()
        ostrel_use_precompiled(${name} core_test)
    endif()
    gtest_discover_tests(${name} NO_PRETTY_VALUES DISCOVERY_TIMEOUT 60 PROPERTIES ${properties})
endfunction()
include(GoogleTest)
