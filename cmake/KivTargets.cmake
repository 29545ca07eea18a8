# SPDX-License-Identifier: MIT
# How the project's targets are made: warnings, include folders, SONAMEs, exported symbols.

# Warnings for the project's own code. They are errors only where KIV_WARNINGS_AS_ERRORS says so (the presets do).
function(kiv_warnings target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
    if(KIV_WARNINGS_AS_ERRORS)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
endfunction()

# kiv_add_library(<name> SOVERSION <n> ALIAS <alias>): a shared library lib<name>.so.<n>, known as Kiv::<alias>, with
# its public headers under include/.
function(kiv_add_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "SOVERSION;ALIAS" "")
    add_library(${name} SHARED)
    add_library(Kiv::${arg_ALIAS} ALIAS ${name})
    set_target_properties(${name} PROPERTIES
        EXPORT_NAME ${arg_ALIAS} VERSION ${arg_SOVERSION}.0.0 SOVERSION ${arg_SOVERSION})
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

# kiv_add_test(<name> [INTERNALS] <sources...>): a GoogleTest program whose tests CTest knows one by one. It uses the
# shared library or, with INTERNALS, the library's objects, of which it sees more than is exported.
function(kiv_add_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "INTERNALS" "" "")
    add_executable(${name} ${arg_UNPARSED_ARGUMENTS})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    if(arg_INTERNALS)
        target_link_libraries(${name} PRIVATE kiv_convert_objects GTest::gtest_main)
        target_sources(${name} PRIVATE $<TARGET_OBJECTS:kiv_convert_objects>)
    else()
        target_link_libraries(${name} PRIVATE KivDataConvert GTest::gtest_main)
    endif()
    kiv_warnings(${name})
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 600)
endfunction()
