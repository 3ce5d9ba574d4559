# Debian packages and the source archive, made by cpack: `cpack -G DEB` and `cpack --config CPackSourceConfig.cmake` in
# the folder of a build with -DCMAKE_INSTALL_PREFIX=/usr. docs/packages.md tells about them.
set(CPACK_PACKAGE_NAME zvxmllib)
set(CPACK_PACKAGE_VENDOR "The zvxmllib developers")
set(CPACK_PACKAGE_CONTACT "The zvxmllib developers <zvxmllib@localhost>" CACHE STRING
    "Who answers for the packages: a name and an address")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_STRIP_FILES ON)
set(CPACK_RESOURCE_FILE_LICENSE "${PROJECT_SOURCE_DIR}/LICENSE")

set(CPACK_COMPONENTS_ALL library development documents)
if(ZVXMLLIB_BUILD_TOOLS OR ZVXMLLIB_BUILD_GENERATOR)
    list(APPEND CPACK_COMPONENTS_ALL tools)
endif()
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS OFF)

set(library_package "libzvxmllib${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME ${library_package})
set(CPACK_COMPONENT_LIBRARY_DESCRIPTION "XML data binding at run time
 XML text, JSON and Fast Infoset from the same objects, validated.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libzvxmllib-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${library_package} (= ${PROJECT_VERSION})")
if(TARGET zvxml-gen) # find_package looks for it
    string(APPEND CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS ", zvxml (= ${PROJECT_VERSION})")
endif()
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "XML data binding: headers and build files
 For programs that use zvxmllib, by CMake or pkg-config.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME zvxml)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION text)
set(CPACK_COMPONENT_TOOLS_DESCRIPTION "converts, formats, compares and validates XML, JSON and Fast Infoset
 zvxml works on documents of any size; zvxml-gen makes C++ classes of schemas.")

set(CPACK_DEBIAN_DOCUMENTS_PACKAGE_NAME libzvxmllib-doc)
set(CPACK_DEBIAN_DOCUMENTS_PACKAGE_SECTION doc)
set(CPACK_DEBIAN_DOCUMENTS_PACKAGE_ARCHITECTURE all)
set(CPACK_COMPONENT_DOCUMENTS_DESCRIPTION "XML data binding: guides and examples
 How zvxmllib and its tools are used.")

# Debian has the licence in each package.
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
    string(TOUPPER "${component}" upper)
    install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" RENAME copyright COMPONENT ${component} EXCLUDE_FROM_ALL
        DESTINATION "${CMAKE_INSTALL_DATAROOTDIR}/doc/${CPACK_DEBIAN_${upper}_PACKAGE_NAME}")
endforeach()

set(CPACK_SOURCE_GENERATOR TXZ)
set(CPACK_SOURCE_PACKAGE_FILE_NAME "zvxmllib-${PROJECT_VERSION}")
set(CPACK_SOURCE_IGNORE_FILES "/build/;/\\\\.git/;/\\\\.git$;/\\\\.cache/;/_CPack_Packages/")
include(CPack)
