# SPDX-License-Identifier: MIT
# What is installed of a library: itself, its headers, and what finds it: a CMake package and a pkg-config file.
include(CMakePackageConfigHelpers)

set(kiv_templates ${CMAKE_CURRENT_LIST_DIR})

# Installed programs and libraries find each other relative to themselves, so that the installed tree can be moved.
file(RELATIVE_PATH kiv_programs_to_libraries ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
list(APPEND CMAKE_INSTALL_RPATH $ORIGIN $ORIGIN/${kiv_programs_to_libraries})

# kiv_install(<target> COMPONENT <name> DESCRIPTION <sentence> OPENCV <module>... [PACKAGES <package>...]): the library as
# component <name>, and what it takes to build with it as <name>_dev. OPENCV are the modules that it uses. PACKAGES are the
# other libraries of the family that its headers include, each with its major version, such as "KivRLC 1".
function(kiv_install target)
    if(NOT KIV_INSTALL)
        return()
    endif()
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "COMPONENT;DESCRIPTION" "OPENCV;PACKAGES")
    set(dev ${arg_COMPONENT}_dev)
    install(TARGETS ${target} EXPORT ${target}Targets
        RUNTIME COMPONENT ${arg_COMPONENT}
        LIBRARY COMPONENT ${arg_COMPONENT} NAMELINK_COMPONENT ${dev}
        ARCHIVE COMPONENT ${dev})
    install(DIRECTORY include/ TYPE INCLUDE COMPONENT ${dev})
    kiv_install_cmake_package(${target} ${dev} "${arg_OPENCV}" "${arg_PACKAGES}")
    kiv_install_pkg_config(${target} ${dev} "${arg_PACKAGES}" "${arg_DESCRIPTION}")
endfunction()

function(kiv_install_cmake_package target component opencv packages)
    set(folder ${CMAKE_INSTALL_LIBDIR}/cmake/${target})
    # Headers need OpenCV's core; only who links a static library needs what it uses besides.
    set(KIV_OPENCV_MODULES core)
    if(NOT BUILD_SHARED_LIBS)
        string(REPLACE ";" " " KIV_OPENCV_MODULES "${opencv}")
    endif()
    set(KIV_FIND_PACKAGES "")
    foreach(package ${packages})
        string(APPEND KIV_FIND_PACKAGES "find_dependency(${package} CONFIG HINTS \${CMAKE_CURRENT_LIST_DIR}/..)\n")
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
    kiv_folder_of_opencv(opencv_folder)
    set(KIV_OPENCV_LIBRARY -lopencv_core)
    if(NOT opencv_folder IN_LIST CMAKE_CXX_IMPLICIT_LINK_DIRECTORIES)
        set(KIV_OPENCV_LIBRARY "-L${opencv_folder} -lopencv_core")
    endif()
    configure_file(${kiv_templates}/pkg-config.pc.in ${target}.pc @ONLY)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${target}.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT ${component})
endfunction()

# The folder of OpenCV's libraries, which the linker may not search by itself.
function(kiv_folder_of_opencv result)
    get_target_property(configurations opencv_core IMPORTED_CONFIGURATIONS)
    list(GET configurations 0 configuration)
    get_target_property(library opencv_core IMPORTED_LOCATION_${configuration})
    get_filename_component(folder "${library}" DIRECTORY)
    set(${result} "${folder}" PARENT_SCOPE)
endfunction()
