# SPDX-License-Identifier: MIT
# How the project's targets are made: warnings, include folders, SONAMEs, exported symbols.

# Warnings for the project's own code. They are errors only where KIV_WARNINGS_AS_ERRORS says so (the presets do).
function(kiv_warnings target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
    if(KIV_WARNINGS_AS_ERRORS)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
endfunction()

# kiv_add_library(<name> VERSION <n.m.k> ALIAS <alias>): a shared library lib<name>.so.<n>, known as Kiv::<alias>, with
# its public headers under include/.
function(kiv_add_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "VERSION;ALIAS" "")
    add_library(${name} SHARED)
    add_library(Kiv::${arg_ALIAS} ALIAS ${name})
    string(REGEX MATCH "^[0-9]+" major ${arg_VERSION})
    set_target_properties(${name} PROPERTIES EXPORT_NAME ${arg_ALIAS} VERSION ${arg_VERSION} SOVERSION ${major})
    target_compile_features(${name} INTERFACE cxx_std_17)
    target_include_directories(${name} PUBLIC
        $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}/include> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
    kiv_warnings(${name})
endfunction()

# Exports from a library only what the version script names.
function(kiv_export_only target map)
    target_link_options(${target} PRIVATE -Wl,--version-script=${map})
    set_target_properties(${target} PROPERTIES LINK_DEPENDS ${map})
endfunction()

# kiv_add_test(<name> <sources...>): a GoogleTest program on the shared library, whose tests CTest knows one by one,
# with the program's name as their label.
function(kiv_add_test name)
    add_executable(${name} ${ARGN})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(${name} PRIVATE KivDataConvert GTest::gtest_main)
    kiv_warnings(${name})
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 600 LABELS ${name})
endfunction()

# kiv_add_internal_tests(<name> <sources...>): the programs <name>_tests and <name>_contract_only_tests, which are linked
# with the library's objects and so see more than is exported: once as they are, once as they are built to use nothing
# but the contract of the data types. The tests are compiled once.
function(kiv_add_internal_tests name)
    add_library(${name}_test_objects OBJECT ${ARGN})
    target_include_directories(${name}_test_objects PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(${name}_test_objects PUBLIC kiv_convert_objects GTest::gtest_main)
    kiv_warnings(${name}_test_objects)
    foreach(variant "" _contract_only)
        set(program ${name}${variant}_tests)
        add_executable(${program}
            $<TARGET_OBJECTS:${name}_test_objects> $<TARGET_OBJECTS:kiv_convert${variant}_objects>)
        target_link_libraries(${program} PRIVATE KivData KivRLC opencv_imgproc GTest::gtest_main)
        set_target_properties(${program} PROPERTIES LINKER_LANGUAGE CXX)
        gtest_discover_tests(${program}
            TEST_SUFFIX "${variant}" DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 600 LABELS ${program})
    endforeach()
endfunction()
