# SPDX-License-Identifier: MIT
# What is installed of a library: itself, its headers, and what finds it: a CMake package and a pkg-config file.
include(CMakePackageConfigHelpers)

set(kiv_templates ${CMAKE_CURRENT_LIST_DIR})

# Installed programs and libraries find each other relative to themselves, so that the installed tree can be moved.
file(RELATIVE_PATH kiv_programs_to_libraries ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
list(APPEND CMAKE_INSTALL_RPATH $ORIGIN $ORIGIN/${kiv_programs_to_libraries})

# kiv_install(<target> COMPONENT <name> DESCRIPTION <sentence> [PACKAGES <package>...]): the library as component
# <name>, and what it takes to build with it as <name>_dev. PACKAGES are the other libraries of the family that its
# headers include, each with its major version, such as "KivRLC 1".
function(kiv_install target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "COMPONENT;DESCRIPTION" "PACKAGES")
    set(dev ${arg_COMPONENT}_dev)
    install(TARGETS ${target} EXPORT ${target}Targets
        LIBRARY COMPONENT ${arg_COMPONENT} NAMELINK_COMPONENT ${dev})
    install(DIRECTORY include/ TYPE INCLUDE COMPONENT ${dev})
    kiv_install_cmake_package(${target} ${dev} "${arg_PACKAGES}")
    kiv_install_pkg_config(${target} ${dev} "${arg_PACKAGES}" "${arg_DESCRIPTION}")
endfunction()

function(kiv_install_cmake_package target component packages)
    set(folder ${CMAKE_INSTALL_LIBDIR}/cmake/${target})
    set(KIV_FIND_PACKAGES "")
    foreach(package ${packages})
        string(APPEND KIV_FIND_PACKAGES "find_dependency(${package} CONFIG)\n")
    endforeach()
    configure_file(${kiv_templates}/PackageConfig.cmake.in ${target}Config.cmake @ONLY)
    get_target_property(version ${target} VERSION)
    write_basic_package_version_file(${target}ConfigVersion.cmake VERSION ${version} COMPATIBILITY SameMajorVersion)
    install(EXPORT ${target}Targets NAMESPACE Kiv:: DESTINATION ${folder} COMPONENT ${component})
    install(
        FILES ${CMAKE_CURRENT_BINARY_DIR}/${target}Config.cmake ${CMAKE_CURRENT_BINARY_DIR}/${target}ConfigVersion.cmake
        DESTINATION ${folder} COMPONENT ${component})
endfunction()

function(kiv_install_pkg_config target component packages description)
    # Paths relative to the file itself, so that it can be moved with the tree.
    set(folder ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig)
    file(RELATIVE_PATH KIV_TO_INCLUDES ${folder} ${CMAKE_INSTALL_FULL_INCLUDEDIR})
    file(RELATIVE_PATH KIV_TO_LIBRARIES ${folder} ${CMAKE_INSTALL_FULL_LIBDIR})
    set(KIV_NAME ${target})
    set(KIV_DESCRIPTION "${description}")
    get_target_property(KIV_VERSION ${target} VERSION)
    string(REGEX REPLACE "([A-Za-z]+) ([0-9]+)" "\\1 >= \\2" KIV_REQUIRES "${packages}")
    string(REPLACE ";" ", " KIV_REQUIRES "${KIV_REQUIRES}")
    # pkg-config knows OpenCV 3 by another name than OpenCV 4.
    string(REGEX REPLACE "^3$" "" KIV_OPENCV_MAJOR ${OpenCV_VERSION_MAJOR})
    configure_file(${kiv_templates}/pkg-config.pc.in ${target}.pc @ONLY)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${target}.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT ${component})
endfunction()
