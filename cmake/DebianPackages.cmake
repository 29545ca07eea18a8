# SPDX-License-Identifier: MIT
# Debian packages, split as Debian splits libraries: each library by itself, named after its SONAME; what it takes to
# build with it; and the program.
set(debian_folder ${CMAKE_CURRENT_SOURCE_DIR}/packaging/debian)

# The changelog is the one place that says the packages' version and maintainer.
file(READ ${debian_folder}/changelog changelog)
string(REGEX REPLACE "^#[^\n]*\n" "" changelog "${changelog}") # the licence line, for which its format has no room
string(REGEX MATCH "^([a-z]+) \\(([^)]+)\\)" _ "${changelog}")
set(source_package ${CMAKE_MATCH_1})
set(debian_version ${CMAKE_MATCH_2})
string(REGEX MATCH "\n -- ([^>]+>)" _ "${changelog}")
set(CPACK_PACKAGE_CONTACT "${CMAKE_MATCH_1}")
if(NOT debian_version MATCHES "^${PROJECT_VERSION}-([0-9]+)$")
    message(FATAL_ERROR "packaging/debian/changelog is of ${debian_version}, the project of ${PROJECT_VERSION}")
endif()
set(CPACK_DEBIAN_PACKAGE_RELEASE ${CMAKE_MATCH_1})
file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/changelog.Debian "${changelog}")
execute_process(COMMAND gzip -9nf ${CMAKE_CURRENT_BINARY_DIR}/changelog.Debian COMMAND_ERROR_IS_FATAL ANY)

# kiv_debian_package(<component> NAME <package> SECTION <section> SUMMARY <line> TEXT <text> [DEPENDS <package>...]
#     [TRIGGERS <file>]). What dpkg-shlibdeps finds by itself, which is all that other projects provide, is not listed.
function(kiv_debian_package component)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "NAME;SECTION;SUMMARY;TEXT;TRIGGERS" "DEPENDS")
    install(FILES ${debian_folder}/copyright ${CMAKE_CURRENT_BINARY_DIR}/changelog.Debian.gz
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${arg_NAME} COMPONENT ${component})

    string(TOUPPER ${component} prefix)
    string(REPLACE ";" ", " depends "${arg_DEPENDS}")
    set(CPACK_DEBIAN_${prefix}_PACKAGE_NAME ${arg_NAME} PARENT_SCOPE)
    set(CPACK_DEBIAN_${prefix}_PACKAGE_SECTION ${arg_SECTION} PARENT_SCOPE)
    set(CPACK_DEBIAN_${prefix}_PACKAGE_DEPENDS "${depends}" PARENT_SCOPE)
    set(CPACK_DEBIAN_${prefix}_PACKAGE_CONTROL_EXTRA "${arg_TRIGGERS}" PARENT_SCOPE)
    set(CPACK_DEBIAN_${prefix}_DESCRIPTION "${arg_SUMMARY}\n${arg_TEXT}" PARENT_SCOPE)
    set(CPACK_COMPONENTS_ALL ${CPACK_COMPONENTS_ALL} ${component} PARENT_SCOPE)
endfunction()

kiv_debian_package(rlc NAME libkivrlc1 SECTION libs
    SUMMARY "run extraction from 8-bit masks"
    TEXT "KivRLC finds the runs of foreground pixels in a mask."
    TRIGGERS ${debian_folder}/triggers)
kiv_debian_package(rlc_dev NAME libkivrlc-dev SECTION libdevel
    SUMMARY "run extraction from 8-bit masks - development files"
    TEXT "Headers, CMake package and pkg-config file of KivRLC."
    DEPENDS "libkivrlc1 (= ${debian_version})" libopencv-dev)

kiv_debian_package(data NAME libkivdata3 SECTION libs
    SUMMARY "data types of machine vision"
    TEXT "KivData has images, matrices, run-length regions, regions of interest,\nsub-pixel contours, points and variants."
    DEPENDS "libkivrlc1 (>= ${PROJECT_VERSION})"
    TRIGGERS ${debian_folder}/triggers)
kiv_debian_package(data_dev NAME libkivdata-dev SECTION libdevel
    SUMMARY "data types of machine vision - development files"
    TEXT "Headers, CMake package and pkg-config file of KivData."
    DEPENDS "libkivdata3 (= ${debian_version})" "libkivrlc-dev (= ${debian_version})")

kiv_debian_package(convert NAME libkivdataconvert3 SECTION libs
    SUMMARY "conversions between data types of machine vision"
    TEXT "KivDataConvert carries shapes between images, run-length regions, regions of\ninterest, contours, points and \
matrices, and combines them by set algebra."
    DEPENDS "libkivdata3 (>= ${PROJECT_VERSION})" "libkivrlc1 (>= ${PROJECT_VERSION})"
    TRIGGERS ${debian_folder}/triggers)
kiv_debian_package(convert_dev NAME libkivdataconvert-dev SECTION libdevel
    SUMMARY "conversions between vision data types - development files"
    TEXT "Headers, CMake package and pkg-config file of KivDataConvert."
    DEPENDS "libkivdataconvert3 (= ${debian_version})" "libkivdata-dev (= ${debian_version})")

kiv_debian_package(tools NAME kivdataconvert-tools SECTION utils
    SUMMARY "conversions of vision shapes on the command line"
    TEXT "The program kivconvert carries shapes between files of images, runs, contours\nand points, and combines them \
by set algebra.")

# Debian has its manual pages compressed.
install(CODE [[
    file(GLOB pages "$ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}/share/man/man*/*.[0-9]")
    if(pages)
        execute_process(COMMAND gzip -9nf ${pages} COMMAND_ERROR_IS_FATAL ANY)
    endif()
]] COMPONENT tools)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # or it would precede every package's own
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_PACKAGE_SOURCE ${source_package})
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Where dpkg-shlibdeps finds the project's own libraries; what depends on them says so above.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
    ${PROJECT_BINARY_DIR} ${PROJECT_BINARY_DIR}/libs/KivData ${PROJECT_BINARY_DIR}/libs/KivRLC)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
include(CPack)
