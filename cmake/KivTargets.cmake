# SPDX-License-Identifier: MIT
# How the project's targets are made: warnings, precompiled headers, include folders, SONAMEs, exported symbols.
include(CheckCXXCompilerFlag)
include(CheckCXXSourceCompiles)
include(CheckLinkerFlag)

set(kiv_exports_template ${CMAKE_CURRENT_LIST_DIR}/exports.map.in)

# What GCC and Clang have and other compilers and linkers may lack.
set(kiv_warning_flags -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
check_cxx_compiler_flag("${kiv_warning_flags}" KIV_HAS_WARNING_FLAGS)
check_cxx_compiler_flag(-ffp-contract=off KIV_HAS_FP_CONTRACT)
file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/any.map "{ local: unused; };")
check_linker_flag(CXX -Wl,--version-script=${CMAKE_CURRENT_BINARY_DIR}/any.map KIV_HAS_VERSION_SCRIPTS)

# Results of doubles must be rounded to doubles. The x87 registers, which compilers for 32-bit x86 use by default, do not
# do so; SSE2 does.
check_cxx_source_compiles("#include <cfloat>
    static_assert(FLT_EVAL_METHOD == 0 || FLT_EVAL_METHOD == 1, \"\");
    int main() {}" KIV_ROUNDS_DOUBLES)
if(NOT KIV_ROUNDS_DOUBLES)
    add_compile_options(-msse2 -mfpmath=sse)
endif()

# Nobody asks which operations on doubles were invalid or inexact. GCC can vectorise comparisons only if it may forget it.
check_cxx_compiler_flag(-fno-trapping-math KIV_HAS_NO_TRAPPING_MATH)
if(KIV_HAS_NO_TRAPPING_MATH)
    add_compile_options(-fno-trapping-math)
endif()

# Warnings for the project's own code. They are errors only where KIV_WARNINGS_AS_ERRORS says so (the presets do).
function(kiv_warnings target)
    if(KIV_HAS_WARNING_FLAGS)
        target_compile_options(${target} PRIVATE ${kiv_warning_flags} $<$<BOOL:${KIV_WARNINGS_AS_ERRORS}>:-Werror>)
    endif()
endfunction()

# kiv_precompile(<target> <header>...): has the headers precompiled for the target, if KIV_PRECOMPILE_HEADERS asks for it
# and the target's sources are not compiled as one. All sources include what they need themselves.
function(kiv_precompile target)
    if(KIV_PRECOMPILE_HEADERS AND NOT CMAKE_UNITY_BUILD)
        target_precompile_headers(${target} PRIVATE ${ARGN})
        kiv_let_ccache_see_headers(${target})
    endif()
endfunction()

# kiv_precompile_as(<target> <other>): takes the headers that are precompiled for another target, whose options are the
# same.
function(kiv_precompile_as target other)
    if(KIV_PRECOMPILE_HEADERS AND NOT CMAKE_UNITY_BUILD)
        target_precompile_headers(${target} REUSE_FROM ${other})
        kiv_let_ccache_see_headers(${target})
    endif()
endfunction()

function(kiv_let_ccache_see_headers target)
    target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
endfunction()

# kiv_add_library(<name> VERSION <n.m.k> ALIAS <alias> EXPORTS <pattern>...): the library, known as Kiv::<alias>, with its
# public headers under include/. A shared one is lib<name>.so.<n> and exports what a pattern names, and nothing else,
# whatever templates it instantiates.
function(kiv_add_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "VERSION;ALIAS" "EXPORTS")
    add_library(${name})
    add_library(Kiv::${arg_ALIAS} ALIAS ${name})
    string(REGEX MATCH "^[0-9]+" major ${arg_VERSION})
    set_target_properties(${name} PROPERTIES EXPORT_NAME ${arg_ALIAS} VERSION ${arg_VERSION} SOVERSION ${major})
    target_compile_features(${name} INTERFACE cxx_std_17)
    target_include_directories(${name} PUBLIC
        $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}/include> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>
        PRIVATE ${PROJECT_SOURCE_DIR})
    kiv_warnings(${name})
    if(NOT BUILD_SHARED_LIBS)
        target_compile_definitions(${name} PUBLIC KIV_STATIC)
    endif()
    if(BUILD_SHARED_LIBS AND KIV_HAS_VERSION_SCRIPTS)
        kiv_export_only(${name} ${arg_EXPORTS})
    endif()
endfunction()

function(kiv_export_only target)
    string(REPLACE ";" "; " KIV_EXPORTS "${ARGN}")
    set(map ${CMAKE_CURRENT_BINARY_DIR}/${target}.map)
    configure_file(${kiv_exports_template} ${map} @ONLY)
    target_link_options(${target} PRIVATE -Wl,--version-script=${map})
    set_target_properties(${target} PROPERTIES LINK_DEPENDS ${map})
endfunction()

# kiv_add_test(<name> <sources...>): a GoogleTest program on the library, which CTest knows by its name and by that name as
# its label.
function(kiv_add_test name)
    add_executable(${name} ${ARGN})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PRIVATE KivDataConvert GTest::gtest_main)
    kiv_warnings(${name})
    kiv_precompile_as(${name} kiv_test_headers)
    kiv_run_test(${name})
endfunction()

# kiv_run_test(<program>): CTest starts the program once, for all tests in it; one start each would take longer than nearly
# all of the tests.
function(kiv_run_test program)
    add_test(NAME ${program} COMMAND ${program} --gtest_brief=1)
    set_tests_properties(${program} PROPERTIES TIMEOUT 1200 LABELS ${program})
endfunction()

# kiv_add_test_objects(<name> <sources...>): <name>_test_objects, tests that see more of the library than is exported.
function(kiv_add_test_objects name)
    add_library(${name}_test_objects OBJECT ${ARGN})
    target_include_directories(${name}_test_objects PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(${name}_test_objects PUBLIC kiv_convert_objects GTest::gtest_main)
    kiv_warnings(${name}_test_objects)
    kiv_precompile_as(${name}_test_objects kiv_test_headers)
endfunction()

# kiv_add_internal_tests(<program> DATA_TYPES <objects> TESTS <name>...): a program of such tests and the library's objects,
# with those objects for what the library asks of the data types.
function(kiv_add_internal_tests program)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "DATA_TYPES" "TESTS")
    list(TRANSFORM arg_TESTS REPLACE "(.+)" "$<TARGET_OBJECTS:\\1_test_objects>")
    add_executable(${program} ${arg_TESTS} $<TARGET_OBJECTS:kiv_convert_objects> $<TARGET_OBJECTS:${arg_DATA_TYPES}>)
    target_link_libraries(${program} PRIVATE KivData KivRLC opencv_imgproc GTest::gtest_main)
    set_target_properties(${program} PROPERTIES LINKER_LANGUAGE CXX)
    kiv_run_test(${program})
endfunction()
