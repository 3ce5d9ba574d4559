# What `cmake --install` puts where: the library with its headers and package files, licence and documentation.
include(CMakePackageConfigHelpers)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/zvxmllib")

install(TARGETS zvxmllib zvxmllib_generated EXPORT zvxmllibTargets
    RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT library
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT library NAMELINK_COMPONENT development
    ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development
    FILE_SET HEADERS DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" COMPONENT development)
install(EXPORT zvxmllibTargets NAMESPACE zvxmllib:: DESTINATION "${package_dir}" COMPONENT development)

# A static library leaves the libraries that it calls to the program; a shared one brings them along.
set(ZVXMLLIB_IS_STATIC OFF)
set(ZVXMLLIB_PC_REQUIRES)
set(ZVXMLLIB_PC_LIBS)
if(NOT BUILD_SHARED_LIBS)
    set(ZVXMLLIB_IS_STATIC ON)
    string(REPLACE "pcre" "libpcre" pattern_package "${ZVXMLLIB_REGEX_USED}")
    string(REPLACE "libpcre2" "libpcre2-8" pattern_package "${pattern_package}")
    set(ZVXMLLIB_PC_REQUIRES "Requires: expat zlib ${pattern_package}")
    set(ZVXMLLIB_PC_LIBS " -pthread")
    install(FILES "${PROJECT_SOURCE_DIR}/cmake/PatternLibrary.cmake" DESTINATION "${package_dir}"
        COMPONENT development)
endif()

configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/zvxmllibConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/zvxmllibConfig.cmake" INSTALL_DESTINATION "${package_dir}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/zvxmllibConfigVersion.cmake"
    COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/zvxmllibConfig.cmake" "${PROJECT_BINARY_DIR}/zvxmllibConfigVersion.cmake"
    "${PROJECT_SOURCE_DIR}/cmake/ZvXmlLibGenerate.cmake"
    DESTINATION "${package_dir}" COMPONENT development)

# Relative, so that the installed tree can be moved.
file(RELATIVE_PATH ZVXMLLIB_PC_TO_PREFIX "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
configure_file("${PROJECT_SOURCE_DIR}/cmake/zvxmllib.pc.in" "${PROJECT_BINARY_DIR}/zvxmllib.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/zvxmllib.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig"
    COMPONENT development)

# What gdb shows of values: once where gdb finds it with the shared library in its place, once for static builds.
set(printers "${PROJECT_SOURCE_DIR}/tools/gdb/zvxmllib-gdb.py")
install(FILES "${printers}" DESTINATION "${CMAKE_INSTALL_DATADIR}/zvxmllib" COMPONENT development)
if(BUILD_SHARED_LIBS)
    install(FILES "${printers}" DESTINATION "${CMAKE_INSTALL_DATADIR}/gdb/auto-load${CMAKE_INSTALL_FULL_LIBDIR}"
        RENAME "libzvxmllib.so.${PROJECT_VERSION}-gdb.py" COMPONENT development)
endif()

install(FILES LICENSE NOTICE README.md CHANGELOG.md DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT documents)
install(DIRECTORY docs DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT documents
    PATTERN site EXCLUDE PATTERN CMakeLists.txt EXCLUDE PATTERN Doxyfile.in EXCLUDE)
install(DIRECTORY examples DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT documents PATTERN data EXCLUDE)

if(PROJECT_IS_TOP_LEVEL)
    include(Packages)
endif()
